#pragma once

#include "ui/style/Theme.h"
#include "ui/style/TypeScale.h"

#include <QString>

namespace brimlow::style {

/// The style sheet of the whole application. What it cannot draw (switches, maps, the focus ring)
/// paints itself with the same theme.
QString styleSheet(const Theme& theme, const TypeScale& type);

} // namespace brimlow::style
