#pragma once

#include "ui/controls/Card.h"
#include "ui/controls/LabelledSlider.h"

namespace brimlow {

/// A panel with a slider and a note on what its value is about.
class SliderPanel : public controls::Card {
    Q_OBJECT

public:
    SliderPanel(const controls::LabelledSlider::Texts& texts,
                const controls::ValueSlider::Range& range, const QString& note,
                QWidget* parent = nullptr);

    void show(double value, const QString& readout) { slider_->show(value, readout); }
    using QWidget::show;

Q_SIGNALS:
    void chosen(double value);

private:
    controls::LabelledSlider* slider_;
};

} // namespace brimlow
