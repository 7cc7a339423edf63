#pragma once

#include "engine/TapInfo.h"
#include "ui/controls/Card.h"

#include <optional>

namespace brimlow {

namespace controls {
class LabelledSlider;
class ToggleRow;
} // namespace controls
class TapReadout;

/// Whether palms are ignored, and what counts as one. Shows what it is given.
class PalmRejectionSection : public controls::Section {
    Q_OBJECT

public:
    explicit PalmRejectionSection(QWidget* parent = nullptr);

    /// `maxAxis`: the largest major axis that is no palm.
    void show(bool palmRejection, double maxAxis, const std::optional<TapInfo>& lastTap);
    using QWidget::show;

Q_SIGNALS:
    void palmRejectionChosen(bool on);
    void maxAxisChosen(double maxAxis);

private:
    controls::ToggleRow* toggle_;
    controls::LabelledSlider* slider_;
    TapReadout* readout_;
    QWidget* threshold_;
};

} // namespace brimlow
