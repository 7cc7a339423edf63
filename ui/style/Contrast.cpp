#include "ui/style/Contrast.h"

#include <algorithm>
#include <cmath>

namespace brimlow::style {

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

QColor mixedTo(double ratio, const QColor& other, const QColor& colour, const QColor& end) {
    constexpr int steps = 100;
    for (int step = 0; step < steps; ++step) {
        const QColor mixed = over(end, static_cast<double>(step) / steps, colour);
        if (contrast(mixed, other) >= ratio)
            return mixed;
    }
    return end;
}

} // namespace

double contrast(const QColor& first, const QColor& second) {
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor over(const QColor& top, double opacity, const QColor& bottom) {
    const auto mix = [opacity](int above, int below) {
        return static_cast<int>(std::lround(opacity * above + (1 - opacity) * below));
    };
    return {mix(top.red(), bottom.red()), mix(top.green(), bottom.green()),
            mix(top.blue(), bottom.blue())};
}

QColor darkenedTo(double ratio, const QColor& other, const QColor& colour) {
    return mixedTo(ratio, other, colour, Qt::black);
}

QColor lightenedTo(double ratio, const QColor& other, const QColor& colour) {
    return mixedTo(ratio, other, colour, Qt::white);
}

} // namespace brimlow::style
