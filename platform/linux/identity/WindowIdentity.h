#pragma once

#include "platform/ApplicationCatalogue.h"

#include <sys/types.h>

namespace brimlow::platform {

/// What a window tells of the application it belongs to. Any of it may be empty.
struct WindowEvidence {
    QString statedId;  // _GTK_APPLICATION_ID, or the app id of a Wayland surface
    QString instance;  // WM_CLASS, first half
    QString className; // WM_CLASS, second half
    pid_t pid = 0;     // 0 when it cannot be told
};

/// The id of the installed application that a window belongs to; where there is none a pseudo id
/// that its windows have in common, or nothing. The process is looked at only where the window
/// itself does not tell. `procFolder`: where the kernel tells of processes. Any thread.
QString applicationIdOf(const WindowEvidence& evidence, const ApplicationCatalogue& catalogue,
                        const QString& procFolder = QStringLiteral("/proc"));

} // namespace brimlow::platform
