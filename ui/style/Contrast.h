#pragma once

#include <QColor>

namespace brimlow::style {

/// Contrast between two opaque colours as WCAG 2 defines it: 1 (the same) to 21 (black on white).
double contrast(const QColor& first, const QColor& second);

/// The opaque colour that `top` at `opacity` (0 to 1) gives on `bottom`.
QColor over(const QColor& top, double opacity, const QColor& bottom);

/// `colour` with as much black, or white, as it takes to reach `ratio` against `other`; black or
/// white itself where even that falls short.
QColor darkenedTo(double ratio, const QColor& other, const QColor& colour);
QColor lightenedTo(double ratio, const QColor& other, const QColor& colour);

} // namespace brimlow::style
