#include "ui/editor/SliderPanel.h"

#include "ui/controls/Caption.h"
#include "ui/editor/PanelParts.h"
#include "ui/style/Role.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brimlow {

using style::Role;

SliderPanel::SliderPanel(const Texts& texts, const ValueSlider::Range& range, QWidget* parent)
    : Card(parent), slider_(new ValueSlider(range, texts.heading)), readout_(new QLabel) {
    style::setRole(readout_, Role::caption);
    connect(slider_, &ValueSlider::chosen, this, &SliderPanel::chosen);

    auto* ends = new QHBoxLayout;
    for (const QString& end : {texts.smallEnd, texts.largeEnd}) {
        auto* label = new QLabel(end);
        style::setRole(label, Role::secondCaption);
        if (ends->count() > 0)
            ends->addStretch();
        ends->addWidget(label);
    }
    auto* rows = new QVBoxLayout;
    rows->setSpacing(6);
    rows->addLayout(controls::headingLine(texts.heading, readout_));
    rows->addWidget(slider_);
    rows->addLayout(ends);
    rows->addLayout(infoNote(texts.note));
    add(rows);
}

void SliderPanel::show(double value, const QString& readout) {
    slider_->show(value);
    slider_->setAccessibleDescription(readout);
    readout_->setText(readout);
}

} // namespace brimlow
