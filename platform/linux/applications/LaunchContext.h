#pragma once

#include "platform/Session.h"
#include "platform/linux/applications/GioPointers.h"

namespace brimlow::platform {

/// What GIO asks while it starts an application: the token comes from `startup`, and goes back to
/// it when the start fails. That may be later, from the event loop, so `startup` has to live as
/// long as that runs. `application` need not outlive the call that launches.
ObjectPointer<GAppLaunchContext> newLaunchContext(const DesktopEntry& application,
                                                  Startup& startup);

} // namespace brimlow::platform
