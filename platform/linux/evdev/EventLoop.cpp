#include "platform/linux/evdev/EventLoop.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>

#include <csignal>

namespace brimlow::platform {

EventLoop::EventLoop()
    : epoll_(epoll_create1(EPOLL_CLOEXEC)), wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    watch(wakeUp_.get(), [this](std::uint32_t) { runTasks(); });
    // A thread inherits the mask of the one that starts it.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    thread_ = std::thread([this] { run(); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

EventLoop::~EventLoop() {
    perform([this] { ended_ = true; });
    thread_.join();
}

void EventLoop::perform(const std::function<void()>& work) {
    if (std::this_thread::get_id() == thread_.get_id()) {
        work();
        return;
    }
    Task task{work};
    std::unique_lock lock(mutex_);
    tasks_.push_back(&task);
    wake();
    finished_.wait(lock, [&] { return task.done; });
}

void EventLoop::watch(int descriptor, Handler handler) {
    handlers_[descriptor] = std::make_shared<Handler>(std::move(handler));
    epoll_event interest{};
    interest.events = EPOLLIN;
    interest.data.fd = descriptor;
    epoll_ctl(epoll_.get(), EPOLL_CTL_ADD, descriptor, &interest);
}

void EventLoop::unwatch(int descriptor) {
    if (handlers_.erase(descriptor) > 0)
        epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, descriptor, nullptr);
}

void EventLoop::run() {
    while (!ended_) {
        // One at a time: a handler may unwatch any other.
        epoll_event event{};
        if (epoll_wait(epoll_.get(), &event, 1, -1) != 1)
            continue;
        const auto found = handlers_.find(event.data.fd);
        if (found == handlers_.end())
            continue;
        const std::shared_ptr<Handler> handler = found->second; // may unwatch itself
        (*handler)(event.events);
    }
}

void EventLoop::runTasks() {
    std::uint64_t count = 0;
    [[maybe_unused]] const auto size = read(wakeUp_.get(), &count, sizeof count);
    std::vector<Task*> tasks;
    {
        const std::lock_guard lock(mutex_);
        tasks.swap(tasks_);
    }
    for (Task* task : tasks) {
        task->work();
        const std::lock_guard lock(mutex_);
        task->done = true;
        finished_.notify_all();
    }
}

void EventLoop::wake() const {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto size = write(wakeUp_.get(), &one, sizeof one);
}

} // namespace brimlow::platform
