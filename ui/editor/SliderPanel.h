#pragma once

#include "ui/controls/Card.h"
#include "ui/editor/ValueSlider.h"

class QLabel;

namespace brimlow {

/// A panel with a heading, a readout of the value, a slider and what its ends mean.
class SliderPanel : public controls::Card {
    Q_OBJECT

public:
    struct Texts {
        QString heading;
        QString smallEnd;
        QString largeEnd;
        QString note;
    };

    SliderPanel(const Texts& texts, const ValueSlider::Range& range, QWidget* parent = nullptr);

    void show(double value, const QString& readout);
    using QWidget::show;

Q_SIGNALS:
    void chosen(double value);

private:
    ValueSlider* slider_;
    QLabel* readout_;
};

} // namespace brimlow
