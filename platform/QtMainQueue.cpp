#include "platform/QtMainQueue.h"

#include <QSocketNotifier>
#include <QTimer>

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <system_error>

namespace brimlow::platform {

namespace {

std::chrono::milliseconds toMilliseconds(double seconds) {
    return std::chrono::milliseconds(std::llround(std::ceil(seconds * 1000)));
}

class Timer final : public RepeatingTimer {
public:
    Timer(double seconds, MainQueue::Work work) {
        timer_.setInterval(toMilliseconds(seconds));
        QObject::connect(&timer_, &QTimer::timeout, &timer_, std::move(work));
        timer_.start();
    }

private:
    QTimer timer_;
};

class Source final : public DispatchSource {
public:
    explicit Source(MainQueue::Work handler)
        : descriptor_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)), handler_(std::move(handler)) {
        if (descriptor_ < 0)
            throw std::system_error(errno, std::generic_category(), "eventfd");
        notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                         [this] { fire(); });
    }
    ~Source() override {
        notifier_.reset();
        ::close(descriptor_);
    }

    void raise() override {
        if (raised_.exchange(true, std::memory_order_acq_rel))
            return;
        eventfd_write(descriptor_, 1);
    }

private:
    void fire() {
        eventfd_t ignored = 0;
        eventfd_read(descriptor_, &ignored);
        // Lowered before the handler looks: what is raised from here on wakes us again.
        raised_.exchange(false, std::memory_order_acq_rel);
        handler_();
    }

    int descriptor_;
    std::atomic<bool> raised_ = false;
    MainQueue::Work handler_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace

void QtMainQueue::async(Work work) {
    QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

void QtMainQueue::after(double seconds, Work work) {
    if (seconds <= 0)
        async(std::move(work));
    else
        QTimer::singleShot(toMilliseconds(seconds), Qt::PreciseTimer, &context_, std::move(work));
}

std::unique_ptr<RepeatingTimer> QtMainQueue::every(double seconds, Work work) {
    return std::make_unique<Timer>(seconds, std::move(work));
}

std::unique_ptr<DispatchSource> QtMainQueue::makeSource(Work handler) {
    return std::make_unique<Source>(std::move(handler));
}

} // namespace brimlow::platform
