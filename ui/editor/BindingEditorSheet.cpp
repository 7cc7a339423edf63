#include "ui/editor/BindingEditorSheet.h"

#include "platform/Clock.h"
#include "platform/Platform.h"
#include "ui/controls/Caption.h"
#include "ui/controls/ComboBox.h"
#include "ui/controls/ScrollPage.h"
#include "ui/controls/Switch.h"
#include "ui/editor/EditorTexts.h"
#include "ui/editor/RecordingSection.h"
#include "ui/editor/SliderPanel.h"
#include "ui/pickers/AppPickerView.h"
#include "ui/pickers/FocusWindowPicker.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace brimlow {

using platform::Platform;

namespace {

constexpr int countdown = 3; // seconds

platform::Date now() {
    return Platform::current().clock.wallClock();
}

} // namespace

BindingEditorSheet::BindingEditorSheet(BindingDraft draft, TapPositionMappings& positionMappings,
                                       PositionRecorder& recorder, MultitouchManager& trackpad,
                                       std::function<void()> onDismiss, QWidget* parent)
    : QDialog(parent), draft_(std::move(draft)), positionMappings_(positionMappings),
      recorder_(recorder), trackpad_(trackpad), onDismiss_(std::move(onDismiss)),
      recorderChanges_(Platform::current().mainQueue, [this] { followRecorder(); }),
      touchChanges_(Platform::current().mainQueue,
                    [this] { recording_->showTouches(trackpad_.liveTouches); }) {
    build();
    connectPanels();
    showDraft();
    recorderChanges_.observe(recorder_);
    touchChanges_.observe(trackpad_);
}

BindingEditorSheet::~BindingEditorSheet() {
    hide(); // while hideEvent() is still ours
}

void BindingEditorSheet::connectPanels() {
    connect(name_, &QLineEdit::textEdited, this, [this](const QString& text) {
        draft_.name = text;
        showSave();
    });
    connect(action_, &QComboBox::activated, this, [this](int index) {
        draft_.chooseAction(BindingDraft::offeredActions()[static_cast<std::size_t>(index)]);
        showTarget();
        showClick();
        showSave();
    });
    connect(app_, &AppPickerView::selectedBundleIdChanged, this,
            [this](const std::optional<QString>& bundleId) {
                draft_.bundleId = bundleId;
                window_->setBundleId(bundleId);
                showSave();
            });
    connect(window_, &FocusWindowPicker::bindingChanged, this,
            [this](const WindowBinding& binding) {
                draft_.targetWindowID = binding.targetWindowID;
                draft_.windowTitle = binding.windowTitle;
            });
    connect(recording_, &RecordingSection::recordRequested, this,
            &BindingEditorSheet::startRecording);
    connect(recording_, &RecordingSection::cancelRequested, this, [this] { recorder_.cancel(); });
    connect(radius_, &SliderPanel::chosen, this, [this](double value) {
        draft_.matchRadius = value;
        showRadius();
    });
    connect(click_, &QAbstractButton::clicked, this, [this](bool on) {
        draft_.requireClick = on;
        showClick();
    });
    connect(pressure_, &SliderPanel::chosen, this, [this](double value) {
        draft_.minimumPressure = value;
        showPressure();
    });
}

void BindingEditorSheet::showDraft() {
    name_->setText(draft_.name);
    const auto offered = BindingDraft::offeredActions();
    const auto found = std::ranges::find(offered, draft_.action);
    action_->setCurrentIndex(found == offered.end() ? -1
                                                    : static_cast<int>(found - offered.begin()));
    app_->setSelectedBundleId(draft_.bundleId);
    window_->setBinding({draft_.targetWindowID, draft_.windowTitle});
    window_->setBundleId(draft_.bundleId);
    showTarget();
    showRadius();
    showClick();
    showPressure();
    showSave();
    followRecorder();
    recording_->showTouches(trackpad_.liveTouches);
}

void BindingEditorSheet::showTarget() {
    target_->setVisible(draft_.wantsApplication());
    appCaption_->setText(draft_.action == TapAction::openApp ? QStringLiteral("App to Open")
                                                             : QStringLiteral("App"));
    window_->setVisible(draft_.action == TapAction::focusWindow);
}

void BindingEditorSheet::showRadius() {
    radius_->show(draft_.matchRadius, matchRadiusReadout(draft_.matchRadius));
    recording_->showSamples(draft_.samples, draft_.matchRadius);
}

void BindingEditorSheet::showClick() {
    click_->setChecked(draft_.requireClick);
    clickText_->setText(clickText(draft_.requireClick));
    clickWarning_->setVisible(!clickWarning(draft_.action, draft_.requireClick).isEmpty());
}

void BindingEditorSheet::showPressure() {
    pressure_->show(draft_.minimumPressure, pressureReadout(draft_.minimumPressure));
}

void BindingEditorSheet::showSave() {
    save_->setEnabled(draft_.canSave());
}

void BindingEditorSheet::startRecording() {
    recorder_.capturedSamples = std::vector<TapSample>();
    recorder_.lastSample = std::nullopt;
    recorder_.start(countdown);
}

void BindingEditorSheet::followRecorder() {
    if (recorder_.isComplete) {
        draft_.takeOver(recorder_.capturedSamples, now());
        recorder_.reset();
        showRadius();
    }
    recording_->showRecorder(recorder_);
    if (QWidget* progress = recording_->progress())
        page_->ensureWidgetVisible(progress);
}

void BindingEditorSheet::save() {
    const auto binding = draft_.binding(now());
    if (draft_.mode == BindingDraft::Mode::create)
        positionMappings_.add(binding);
    else
        positionMappings_.update(binding);
    dismiss();
}

void BindingEditorSheet::removeBinding() {
    positionMappings_.remove(draft_.mappingId);
    dismiss();
}

void BindingEditorSheet::reject() {
    dismiss();
}

void BindingEditorSheet::dismiss() {
    recorder_.cancel();
    if (const auto onDismiss = std::exchange(onDismiss_, {}))
        onDismiss();
}

void BindingEditorSheet::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    recorder_.cancel();
}

} // namespace brimlow
