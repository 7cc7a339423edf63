#pragma once

#include "platform/Applications.h"
#include "platform/Session.h"

#include <functional>
#include <memory>

namespace brimlow::platform {

/// The session that this process runs in, judged by its environment. Where there is none that we
/// can speak to, the reason is printed on standard error and the session returned refuses
/// everything. Main thread, after the application object.
///
/// `applications` tell whose a window is, and outlive the session. `whenLost` is called on the main
/// thread once the desktop has gone away.
std::unique_ptr<Session> chooseSession(Applications& applications,
                                       std::function<void(const QString& reason)> whenLost);

} // namespace brimlow::platform
