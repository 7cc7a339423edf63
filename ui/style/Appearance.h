#pragma once

#include <QColor>

#include <optional>

namespace brimlow::style {

enum class ColourScheme { light, dark };

/// What the desktop asks of its applications' looks.
struct Appearance {
    ColourScheme scheme = ColourScheme::light;
    std::optional<QColor> accent = {};
    bool highContrast = false;
    double textScale = 1; // on top of what the display's scale does

    bool operator==(const Appearance&) const = default;
};

} // namespace brimlow::style
