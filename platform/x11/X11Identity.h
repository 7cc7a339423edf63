#pragma once

#include <QString>

#include <sys/types.h>

namespace brimlow::platform {

/// What a window tells of the application it belongs to. Any of it may be empty.
struct X11IdentityEvidence {
    QString gtkApplicationId; // _GTK_APPLICATION_ID
    QString instance;         // WM_CLASS, first half
    QString className;        // WM_CLASS, second half
    pid_t pid = 0;            // 0 when it cannot be told
};

/// The application's id: the one that it states itself, else its class as a pseudo id, else empty.
QString applicationIdOf(const X11IdentityEvidence& evidence);

} // namespace brimlow::platform
