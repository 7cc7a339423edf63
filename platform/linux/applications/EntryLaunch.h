#pragma once

#include "platform/DesktopEntry.h"
#include "platform/Session.h"

namespace brimlow::platform {

/// Starts an application from its file as it is now, over the session bus where the entry says so.
/// The program gets a session of its own, the entry's working folder or else the home folder,
/// /dev/null for its streams and none of our descriptors, and it outlives us. Main thread.
Outcome launchEntry(const DesktopEntry& entry, Startup& startup);

} // namespace brimlow::platform
