#pragma once

#include "platform/HIServices.h"

#include <QString>

#include <variant>
#include <vector>

namespace brimlow::platform {

/// Windows as elements of the processes that own them. Main thread.

using AXValue = std::variant<std::monostate, QString, std::vector<AXUIElement>>;

AXUIElement AXUIElementCreateApplication(pid_t processIdentifier);
/// "AXWindows" of a process: its windows on every workspace, front to back. "AXTitle" of a window:
/// a text. Otherwise `value` is left alone.
AXError AXUIElementCopyAttributeValue(const AXUIElement& element, const QString& attribute,
                                      AXValue& value);
/// "AXMinimized" to false un-hides a window, "AXFocused" to true goes to its workspace and gives it
/// the focus; "AXMain" to true is taken and changes nothing, for here a window is main when it has
/// the focus.
AXError AXUIElementSetAttributeValue(const AXUIElement& element, const QString& attribute,
                                     bool value);
/// "AXRaise" puts a window above all others.
AXError AXUIElementPerformAction(const AXUIElement& element, const QString& action);

} // namespace brimlow::platform
