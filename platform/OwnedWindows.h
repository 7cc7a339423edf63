#pragma once

#include "platform/Session.h"

#include <QString>

#include <optional>
#include <vector>

namespace brimlow::platform {

/// A window, and the identifier of the application it belongs to; empty where nothing tells.
struct OwnedWindow {
    Window window;
    QString owner;
};

/// The session's windows, bottom to top; absent when it cannot be asked. The owner is mostly what
/// the session says, but this process' windows are the main bundle's, and a window that names no
/// installed application belongs to the one that its process runs, if that is one only: a dialog
/// or a plug-in is no application of its own. Main thread.
std::optional<std::vector<OwnedWindow>> ownedWindows();

} // namespace brimlow::platform
