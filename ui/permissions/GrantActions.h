#pragma once

#include <functional>

namespace brimlow {

// What the page's Grant buttons ask of the system, each time anew. Main thread.

void promptForAccessibility();

/// Forgets what was answered about Automation, then sends a script that has the system ask again.
/// Blocks until both are done; a failure is at most a line on standard error.
void resetAndPromptForAutomation();

/// The answer is still on its way when this returns: `answered` is called from the main queue half
/// a second later, with what the system says then.
void promptForScreenRecording(std::function<void(bool granted)> answered);

} // namespace brimlow
