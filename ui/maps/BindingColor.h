#pragma once

#include "ui/style/ApplicationStyle.h"

#include <array>
#include <cstddef>

/// The colours that tell bindings apart, on the maps and beside the rows of their list.
namespace brimlow::BindingColor {

/// Blue, green, orange, purple, pink, teal, yellow and red of the current theme.
inline const std::array<QColor, 8>& palette() {
    return style::currentTheme().bindings;
}

/// Of the binding at `position` in its profile, recorded or not, counted from 0.
inline QColor at(std::size_t position) {
    return palette()[position % palette().size()];
}

} // namespace brimlow::BindingColor
