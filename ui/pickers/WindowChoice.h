#pragma once

#include "ui/pickers/WindowScan.h"

namespace brimlow {

// What the window picker makes of a scan.

/// Those that can be chosen: all but the bound one where that is to be hidden.
std::vector<PickableWindow> visibleWindows(const std::vector<PickableWindow>& windows,
                                           std::optional<std::uint32_t> bound, bool hideBound);

/// "1 window", "2 windows"
QString windowCount(std::size_t count);

/// A button that opens the settings in which something can be granted.
struct SettingsLink {
    QString text;
    QString address;
};

/// What helps against the message of a scan, if anything does.
std::optional<SettingsLink> settingsLink(const QString& refreshError);

} // namespace brimlow
