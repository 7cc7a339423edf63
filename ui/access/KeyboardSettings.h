#pragma once

#include "platform/Applications.h"

#include <QString>

namespace brimlow {

/// The identifier of the installed application in which a desktop sets its keyboard shortcuts;
/// empty where there is none that we know. `desktops` is what $XDG_CURRENT_DESKTOP says. Any
/// thread.
QString keyboardSettingsOf(const QString& desktops, platform::Applications& applications);

} // namespace brimlow
