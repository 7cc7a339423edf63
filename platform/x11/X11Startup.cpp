#include "platform/x11/X11Startup.h"

namespace brimlow::platform {

QString X11Startup::begin(const DesktopEntry&) {
    return {};
}

void X11Startup::abandon(const QString&) {}

} // namespace brimlow::platform
