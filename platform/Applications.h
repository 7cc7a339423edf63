#pragma once

#include "platform/ApplicationCatalogue.h"
#include "platform/Session.h"

#include <memory>

namespace brimlow::platform {

/// The applications that are installed on this machine.
class Applications {
public:
    virtual ~Applications() = default;

    /// As they are now: entries that came, changed or went are noticed here. Any thread; the first
    /// call reads every entry and may take a while.
    virtual std::shared_ptr<const ApplicationCatalogue> catalogue() = 0;
    /// Starts an application, whether it runs or not, and returns before it has come up. `startup`
    /// gets its first window the focus. Main thread.
    virtual Outcome launch(const QString& id, Startup& startup) = 0;
};

} // namespace brimlow::platform
