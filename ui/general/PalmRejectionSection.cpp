#include "ui/general/PalmRejectionSection.h"

#include "platform/Format.h"
#include "ui/controls/LabelledSlider.h"
#include "ui/controls/ToggleRow.h"
#include "ui/general/TapReadout.h"

#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::LabelledSlider;
using controls::ToggleRow;

namespace {

constexpr controls::ValueSlider::Range axes{.first = 8000, .last = 25000, .step = 500};

} // namespace

PalmRejectionSection::PalmRejectionSection(QWidget* parent)
    : Section(u"Palm Rejection"_s, nullptr, parent),
      toggle_(new ToggleRow(u"Ignore palm-sized taps"_s,
                            u"Drops taps whose contact patch is bigger than a fingertip — e.g. "
                            u"when your palm or thumb edge brushes the trackpad while typing."_s)),
      slider_(new LabelledSlider({.heading = u"Treat taps wider than this as palms"_s,
                                  .smallEnd = u"Stricter — fingertip only"_s,
                                  .largeEnd = u"Looser — almost anything"_s},
                                 axes, style::Role::captionHeading)),
      readout_(new TapReadout) {
    connect(toggle_, &ToggleRow::chosen, this, &PalmRejectionSection::palmRejectionChosen);
    connect(slider_, &LabelledSlider::chosen, this, &PalmRejectionSection::maxAxisChosen);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(10);
    rows->addWidget(slider_);
    rows->addWidget(readout_);
    card().add(toggle_);
    threshold_ = card().addPart(rows);
}

void PalmRejectionSection::show(bool palmRejection, double maxAxis,
                                const std::optional<TapInfo>& lastTap) {
    toggle_->setOn(palmRejection);
    threshold_->setVisible(palmRejection);
    slider_->show(maxAxis, platform::fixed(maxAxis, 0));
    readout_->show(lastTap, maxAxis);
}

} // namespace brimlow
