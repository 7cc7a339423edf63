#include "ui/controls/ValueSlider.h"

#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace brimlow::controls {

ValueSlider::ValueSlider(const Range& range, const QString& accessibleName, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), range_(range) {
    setRange(0, (range.last - range.first) / range.step);
    setPageStep(5);
    setAccessibleName(accessibleName);
    connect(this, &QSlider::valueChanged, this, [this](int position) {
        Q_EMIT chosen((range_.first + position * range_.step) / 1000.0);
    });
}

void ValueSlider::show(double value) {
    const QSignalBlocker blocker(this);
    const double position = (value * 1000 - range_.first) / range_.step;
    // A file may hold any number; int holds only some.
    setValue(static_cast<int>(std::lround(std::clamp(position, 0.0, 1.0 * maximum()))));
}

void ValueSlider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace brimlow::controls
