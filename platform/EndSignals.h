#pragma once

#include "platform/FileDescriptor.h"

#include <QSocketNotifier>

namespace brimlow::platform {

/// Ctrl+C and SIGTERM as an ordinary end of the application, after which everything is cleared
/// away; another one, two seconds or more later, ends it at once. One per process, on the main
/// thread, made after the application.
class EndSignals {
public:
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    FileDescriptor wake_;
    QSocketNotifier notifier_;
};

} // namespace brimlow::platform
