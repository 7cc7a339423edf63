#pragma once

#include "platform/Session.h"

#include <QStringList>

#include <vector>

namespace brimlow::platform {

/// The application that each of these windows belongs to, by its identifier; empty where nothing
/// tells. Mostly what the session says, but this process' windows are the main bundle's, and a
/// window that names no installed application belongs to the one that its process runs, if that is
/// one only: a dialog or a plug-in is no application of its own. Main thread.
QStringList ownersOf(const std::vector<Window>& windows);

} // namespace brimlow::platform
