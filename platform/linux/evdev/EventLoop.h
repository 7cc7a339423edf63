#pragma once

#include "platform/FileDescriptor.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace brimlow::platform {

/// A thread that waits for descriptors, without ever waking up for nothing, and does work for
/// others in between. Signals go to other threads.
class EventLoop {
public:
    /// Gets the EPOLL* bits.
    using Handler = std::function<void(std::uint32_t events)>;

    EventLoop();
    /// Waits for the thread to end. Not from the thread itself.
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Runs `work` on the thread, between two handlers, and returns when it is done. Any thread;
    /// from the loop's own it runs at once.
    void perform(const std::function<void()>& work);

    /// Calls `handler` whenever the descriptor can be read. The loop's thread only, as is
    /// unwatch(), which a handler may call for itself.
    void watch(int descriptor, Handler handler);
    void unwatch(int descriptor);

private:
    struct Task {
        const std::function<void()>& work;
        bool done = false;
    };

    void run();
    void runTasks();
    void wake() const;

    FileDescriptor epoll_;
    FileDescriptor wakeUp_;
    std::map<int, std::shared_ptr<Handler>> handlers_;
    bool ended_ = false; // the loop's thread only

    std::mutex mutex_;
    std::condition_variable finished_;
    std::vector<Task*> tasks_; // under mutex_, as is each task's `done`

    std::thread thread_; // last: it uses all of the above
};

} // namespace brimlow::platform
