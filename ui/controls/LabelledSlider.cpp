#include "ui/controls/LabelledSlider.h"

#include "ui/controls/Caption.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brimlow::controls {

using style::Role;

LabelledSlider::LabelledSlider(const Texts& texts, const ValueSlider::Range& range,
                               Role headingRole, QWidget* parent)
    : QWidget(parent), slider_(new ValueSlider(range, texts.heading)), readout_(new QLabel) {
    style::setRole(readout_, Role::caption);
    connect(slider_, &ValueSlider::chosen, this, &LabelledSlider::chosen);

    auto* heading = new Caption(texts.heading, headingRole);
    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    top->addWidget(heading, 1);
    top->addWidget(readout_, 0, Qt::AlignTop);
    auto* smallEnd = new Caption(texts.smallEnd, Role::secondCaption);
    auto* largeEnd = new Caption(texts.largeEnd, Role::secondCaption);
    largeEnd->setAlignment(Qt::AlignRight);
    auto* ends = new QHBoxLayout;
    ends->setSpacing(8);
    ends->addWidget(smallEnd, 1, Qt::AlignTop);
    ends->addWidget(largeEnd, 1, Qt::AlignTop);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(6);
    rows->addLayout(top);
    rows->addWidget(slider_);
    rows->addLayout(ends);
}

void LabelledSlider::show(double value, const QString& readout) {
    slider_->show(value);
    slider_->setAccessibleDescription(readout);
    readout_->setText(readout);
}

} // namespace brimlow::controls
