#include "ui/editor/RecordingSection.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/editor/CountdownDisc.h"
#include "ui/editor/EditorTexts.h"
#include "ui/editor/PanelParts.h"
#include "ui/maps/TrackpadMapView.h"
#include "ui/style/Role.h"
#include "ui/style/Symbols.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using style::Role;
using style::Theme;

namespace {

const QString mapTitle =
    u"Trackpad map (red = recorded position; pale circle = match area; blue = live touch)"_s;

QWidget* wrapped(QLayout* layout) {
    auto* widget = new QWidget;
    layout->setContentsMargins({});
    widget->setLayout(layout);
    return widget;
}

} // namespace

RecordingSection::RecordingSection(QWidget* parent) : Card(parent) {
    add(makePosition());
    addDivider();
    add(makeControls());
}

QWidget* RecordingSection::makePosition() {
    state_ = new QLabel;
    map_ = new TrackpadMapView;
    map_->setTitle(mapTitle);
    recorded_ = wrapped(symbolNote(u"checkmark.circle.fill"_s, &Theme::greenSymbol, {},
                                   Role::coordinates, &recordedAt_));
    legacy_ = wrapped(symbolNote(u"exclamationmark.triangle.fill"_s, &Theme::orangeSymbol, {},
                                 Role::caption, &legacyText_));
    nothingYet_ = new Caption(u"No position recorded yet. Tap the button below, then tap your "
                              u"trackpad where you want this binding to fire."_s);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(8);
    rows->addLayout(controls::headingLine(u"Tap Position"_s, state_));
    for (QWidget* row :
         {static_cast<QWidget*>(map_), recorded_, legacy_, static_cast<QWidget*>(nothingYet_)})
        rows->addWidget(row);
    return wrapped(rows);
}

QWidget* RecordingSection::makeControls() {
    record_ = controls::borderedButton({});
    connect(record_, &QPushButton::clicked, this, &RecordingSection::recordRequested);
    progress_ = makeProgress();
    auto* rows = new QVBoxLayout;
    rows->addWidget(record_, 0, Qt::AlignLeft);
    rows->addWidget(progress_);
    return wrapped(rows);
}

QWidget* RecordingSection::makeProgress() {
    disc_ = new CountdownDisc;
    request_ = new QLabel;
    style::setRole(request_, Role::row);
    request_->setWordWrap(true);
    remaining_ = new QLabel;
    style::setRole(remaining_, Role::caption);
    auto* cancel = controls::borderedButton(u"Cancel"_s);
    cancel->setAccessibleName(u"Cancel recording"_s);
    connect(cancel, &QPushButton::clicked, this, &RecordingSection::cancelRequested);

    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(request_);
    words->addWidget(remaining_);
    auto* line = new QHBoxLayout;
    line->setSpacing(12);
    line->addWidget(disc_);
    line->addLayout(words, 1);
    line->addWidget(cancel);
    return wrapped(line);
}

void RecordingSection::showSamples(const std::vector<TapSample>& samples, double matchRadius) {
    const bool recorded = !samples.empty();
    state_->setText(recorded ? u"Recorded"_s : u"Not recorded"_s);
    style::setRole(state_, recorded ? Role::recordedState : Role::caption);
    map_->setSamples(samples);
    map_->setLastCaptured(recorded ? std::optional(samples.back()) : std::nullopt);
    map_->setMatchRadius(matchRadius);
    if (recorded)
        recordedAt_->setText(recordedText(samples));
    recorded_->setVisible(recorded);
    legacyText_->setText(legacyText(samples));
    legacy_->setVisible(samples.size() > 1);
    nothingYet_->setVisible(!recorded);
    record_->setText(recorded ? u"Re-record Position"_s : u"Record Position"_s);
    record_->setIcon(
        style::symbolIcon(recorded ? u"arrow.clockwise.circle.fill"_s : u"record.circle.fill"_s));
}

void RecordingSection::showRecorder(const PositionRecorder& recorder) {
    const bool counting = recorder.isCountingDown;
    const bool busy = counting || recorder.isRecording;
    const bool hadFocus = record_->hasFocus();
    disc_->setSeconds(counting ? recorder.countdownSeconds.get() : 0);
    request_->setText(counting ? u"Get ready — lift your hand from the trackpad"_s
                               : u"Tap your laptop NOW (one tap)"_s);
    remaining_->setText(counting ? countdownText(recorder.countdownSeconds) : QString());
    remaining_->setVisible(counting);
    record_->setVisible(!busy);
    progress_->setVisible(busy);
    if (busy && hadFocus)
        progress_->findChild<QPushButton*>()->setFocus();
}

void RecordingSection::showTouches(const std::vector<LiveTouch>& touches) {
    map_->setLiveTouches(touches);
}

QWidget* RecordingSection::progress() const {
    return progress_->isVisibleTo(this) ? progress_ : nullptr;
}

} // namespace brimlow
