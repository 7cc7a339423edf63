#pragma once

#include "platform/AXUIElement.h"

#include <optional>

namespace brimlow {

// What both ways of focusing a window do with accessibility elements. Main thread.

/// The windows of a process; absent when they cannot be read, and `error` says why then.
std::optional<std::vector<AXUIElement>> windowElementsOf(pid_t processIdentifier, AXError& error);

/// Un-hides a window and brings it to the front with the focus, as far as the session lets it.
void raiseWindow(const AXUIElement& window);

} // namespace brimlow
