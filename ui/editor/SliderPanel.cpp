#include "ui/editor/SliderPanel.h"

#include "ui/editor/PanelParts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brimlow {

using controls::LabelledSlider;

SliderPanel::SliderPanel(const LabelledSlider::Texts& texts,
                         const controls::ValueSlider::Range& range, const QString& note,
                         QWidget* parent)
    : Card(parent), slider_(new LabelledSlider(texts, range)) {
    connect(slider_, &LabelledSlider::chosen, this, &SliderPanel::chosen);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(6);
    rows->addWidget(slider_);
    rows->addLayout(infoNote(note));
    add(rows);
}

} // namespace brimlow
