#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <variant>

namespace brimlow::platform {

// The scripts for System Events that this program sends: their sources, and what they mean. Any
// thread.

/// Presses a key with Control held. %1: its virtual key code in decimal.
extern const QString keyWithControlSource;
/// Raises the first window of a process that has a name: exactly, else in any case, else as a part
/// of its own. %1: the process, %2: the name, both escaped. Answers "<how>|<name of the window>".
extern const QString focusWindowSource;
/// %1: the process, escaped. Answers a line for each of its windows.
extern const QString dumpWindowsSource;

/// Counts the file manager's windows. Nobody is interested in how many: the request is what asks
/// for consent to send any other script.
extern const QString consentSource;

/// As it stands between the quotes of a literal.
QString escapedForAppleScript(const QString& text);

struct PressKeyWithControl {
    int keyCode;
};
struct FocusWindowByName {
    QString process;
    QString name;
};
struct DumpWindows {
    QString process;
};
struct CountFinderWindows {};
using SystemEventsScript =
    std::variant<PressKeyWithControl, FocusWindowByName, DumpWindows, CountFinderWindows>;

/// Absent for every source but those above.
std::optional<SystemEventsScript> compileForSystemEvents(const QString& source);

} // namespace brimlow::platform
