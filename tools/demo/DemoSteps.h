#pragma once

#include "tools/desktop/DesktopState.h"
#include "tools/desktop/ScratchPreferences.h"

#include <vector>

namespace brimlow::desktop {

/// The windows that are open when the demonstration begins, by their numbers.
struct DemoWindows {
    std::uint32_t editor = 0; // on the first workspace, as all that is not said to be elsewhere
    std::uint32_t build = 0;  // a terminal on the third, "build — release.log"
    std::uint32_t inbox = 0;  // a terminal on the fourth, "Inbox — Work"
    std::uint32_t shell = 0;  // a terminal, "shell"
};

/// One gesture of the recording, what it is bound to, and how to tell that it happened.
struct DemoStep {
    QString gesture;
    QString expectation; // in words
    double at = 0;       // seconds from the recording's start
    QString logLine;     // part of the line that ends it
    std::function<bool(const DesktopState& before, const DesktopState& after)> happened;
};

std::vector<TapPositionMapping> demoBindings(const DemoWindows& windows);
/// In the order of the recording.
std::vector<DemoStep> demoSteps(const DemoWindows& windows);

} // namespace brimlow::desktop
