#pragma once

#include "platform/SystemEventsScripts.h"

namespace brimlow::platform {

/// What came of a script.
struct SystemEventsAnswer {
    QString text = {};   // its result
    int errorNumber = 0; // 0 when it ran to its end
    QString error = {};  // why it did not, one clause
};

/// Runs a script against the session, without any shell. Synchronous, main thread.
SystemEventsAnswer runInSystemEvents(const SystemEventsScript& script);

} // namespace brimlow::platform
