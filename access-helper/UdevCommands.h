#pragma once

namespace brimlow::access {

inline constexpr const char* ruleFolder = "/etc/udev/rules.d";
inline constexpr const char* ruleName = "70-brimlow.rules";

/// Makes udev read its rules again.
inline constexpr const char* reloadRules[] = {"udevadm", "control", "--reload"};

/// Makes udev apply them to the pointers that are there. Matches of one kind are alternatives,
/// matches of several kinds have to hold together. Waits until it is done, without a limit.
inline constexpr const char* applyRules[] = {"udevadm",
                                             "trigger",
                                             "--settle",
                                             "--action=change",
                                             "--subsystem-match=input",
                                             "--property-match=ID_INPUT_TOUCHPAD=1",
                                             "--property-match=ID_INPUT_MOUSE=1"};

} // namespace brimlow::access
