#pragma once

#include "profiles/TapPositionMapping.h"

namespace brimlow::maps {

// What the maps show, for who reads or hears it.

/// "2 bindings · 1 recorded"
QString bindingsInWords(const std::vector<TapPositionMapping>& bindings);
/// "1 sample, match radius 0.080"
QString samplesInWords(std::size_t samples, std::optional<double> matchRadius);
/// ", 2 fingers on the trackpad"; nothing without any.
QString fingersInWords(std::size_t fingers);

} // namespace brimlow::maps
