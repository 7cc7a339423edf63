#pragma once

#include "engine/MultitouchManager.h"
#include "profiles/PositionRecorder.h"
#include "profiles/TapPositionMappings.h"
#include "ui/Refresh.h"
#include "ui/editor/BindingDraft.h"

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace brimlow {

namespace controls {
class Caption;
class ComboBox;
class ScrollPage;
class Switch;
} // namespace controls
class AppPickerView;
class FocusWindowPicker;
class RecordingSection;
class SliderPanel;

/// Makes or changes one binding. Nothing reaches the store before Save or Delete; however it goes
/// away, no recording goes on. Main thread.
class BindingEditorSheet : public QDialog {
    Q_OBJECT

public:
    /// The models outlive it. `onDismiss` takes it away; it is called once, from a handler of the
    /// sheet's own.
    BindingEditorSheet(BindingDraft draft, TapPositionMappings& positionMappings,
                       PositionRecorder& recorder, MultitouchManager& trackpad,
                       std::function<void()> onDismiss, QWidget* parent = nullptr);

    ~BindingEditorSheet() override;

    const BindingDraft& draft() const { return draft_; }

    void save();
    /// Escape, or the window manager: as Cancel.
    void reject() override;

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void build();
    QWidget* makeColumn();
    QLayout* makeHeader();
    QWidget* makeTarget();
    QWidget* makeClickPanel();
    QLayout* makeFooter();
    void connectPanels();

    void startRecording();
    void removeBinding();
    void dismiss();

    void showDraft();
    void showTarget();
    void showRadius();
    void showClick();
    void showPressure();
    void showSave();
    void followRecorder();

    BindingDraft draft_;
    TapPositionMappings& positionMappings_;
    PositionRecorder& recorder_;
    MultitouchManager& trackpad_;
    std::function<void()> onDismiss_;

    controls::ScrollPage* page_;
    QLineEdit* name_;
    controls::ComboBox* action_;
    QWidget* target_;
    QLabel* appCaption_;
    AppPickerView* app_;
    FocusWindowPicker* window_;
    RecordingSection* recording_;
    SliderPanel* radius_;
    controls::Switch* click_;
    controls::Caption* clickText_;
    QWidget* clickWarning_;
    SliderPanel* pressure_;
    QPushButton* save_;

    Refresh recorderChanges_;
    Refresh touchChanges_;
};

} // namespace brimlow
