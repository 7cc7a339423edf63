#pragma once

#include <functional>
#include <memory>

namespace brimlow::platform {

/// Fires again and again until it is destroyed. Main thread only.
class RepeatingTimer {
public:
    virtual ~RepeatingTimer() = default;
};

/// A way to wake the main thread that never allocates and never locks: raising it any number of
/// times before the handler runs runs the handler once. Destroy it on the main thread; the handler
/// does not run afterwards.
class DispatchSource {
public:
    virtual ~DispatchSource() = default;

    /// Any thread.
    virtual void raise() = 0;
};

/// Work for the main thread, done in the order in which it came, never from inside the call
/// that handed it over.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    /// Any thread.
    virtual void async(Work work) = 0;

    /// Runs `work` no earlier than `seconds` from now; 0 means after what is queued already.
    /// Main thread.
    virtual void after(double seconds, Work work) = 0;

    /// The first firing comes after `seconds`. Main thread.
    virtual std::unique_ptr<RepeatingTimer> every(double seconds, Work work) = 0;

    /// Main thread.
    virtual std::unique_ptr<DispatchSource> makeSource(Work handler) = 0;
};

} // namespace brimlow::platform
