#pragma once

#include "tools/desktop/DesktopState.h"
#include "tools/desktop/ScratchPreferences.h"

#include <vector>

namespace brimlow::desktop {

/// One gesture of the recording, what it is bound to, and how to tell that it happened.
struct DemoStep {
    QString gesture;
    QString expectation; // in words
    double at = 0;       // seconds from the recording's start
    QString logLine;     // part of the line that ends it
    std::function<bool(const DesktopState& before, const DesktopState& after)> happened;
};

std::vector<TapPositionMapping> demoBindings();
/// In the order of the recording.
std::vector<DemoStep> demoSteps();

} // namespace brimlow::desktop
