#pragma once

#include "engine/TapInfo.h"
#include "profiles/PositionRecorder.h"
#include "profiles/TapSample.h"
#include "ui/controls/Card.h"

#include <vector>

class QLabel;
class QPushButton;

namespace brimlow {

class CountdownDisc;
class TrackpadMapView;

/// Where the binding's position is, and the way to record it anew. Shows what it is given.
class RecordingSection : public controls::Card {
    Q_OBJECT

public:
    explicit RecordingSection(QWidget* parent = nullptr);

    void showSamples(const std::vector<TapSample>& samples, double matchRadius);
    void showRecorder(const PositionRecorder& recorder);
    void showTouches(const std::vector<LiveTouch>& touches);

    /// What asks something of the user while recording is under way; null when it is not.
    QWidget* progress() const;

Q_SIGNALS:
    void recordRequested();
    void cancelRequested();

private:
    QWidget* makePosition();
    QWidget* makeControls();
    QWidget* makeProgress();

    TrackpadMapView* map_;
    QLabel* state_;
    QWidget* recorded_;
    QLabel* recordedAt_;
    QWidget* legacy_;
    QLabel* legacyText_;
    QLabel* nothingYet_;
    QPushButton* record_;
    QWidget* progress_;
    CountdownDisc* disc_;
    QLabel* request_;
    QLabel* remaining_;
};

} // namespace brimlow
