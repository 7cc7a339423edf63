#include "platform/simulated/VirtualTime.h"

#include <atomic>
#include <cmath>

namespace brimlow::platform {

namespace {
std::int64_t toMicroseconds(double seconds) {
    return std::llround(seconds * 1e6);
}
} // namespace

class VirtualTime::Timer final : public RepeatingTimer {
public:
    Timer(VirtualTime& time, double seconds, Work work)
        : state_(std::make_shared<State>(State{time, seconds, std::move(work)})) {
        arm(state_);
    }

private:
    struct State {
        VirtualTime& time;
        double seconds;
        Work work;
    };

    static void arm(const std::shared_ptr<State>& state) {
        state->time.after(state->seconds, [weak = std::weak_ptr<State>(state)] {
            if (const auto alive = weak.lock()) {
                arm(alive);
                alive->work();
            }
        });
    }

    std::shared_ptr<State> state_;
};

class VirtualTime::Source final : public DispatchSource {
public:
    Source(VirtualTime& time, Work handler)
        : state_(std::make_shared<State>(time, std::move(handler))) {}

    void raise() override {
        if (state_->raised.exchange(true))
            return;
        state_->time.async([weak = std::weak_ptr<State>(state_)] {
            if (const auto alive = weak.lock()) {
                alive->raised = false;
                alive->handler();
            }
        });
    }

private:
    struct State {
        VirtualTime& time;
        Work handler;
        std::atomic<bool> raised = false;
        State(VirtualTime& theTime, Work theHandler)
            : time(theTime), handler(std::move(theHandler)) {}
    };

    std::shared_ptr<State> state_;
};

void VirtualTime::enqueue(double seconds, Work work) {
    const std::lock_guard lock(mutex_);
    queue_.emplace(Due{microseconds_ + toMicroseconds(seconds), ++order_}, std::move(work));
}

void VirtualTime::async(Work work) {
    enqueue(0, std::move(work));
}

void VirtualTime::after(double seconds, Work work) {
    enqueue(std::max(seconds, 0.0), std::move(work));
}

std::unique_ptr<RepeatingTimer> VirtualTime::every(double seconds, Work work) {
    return std::make_unique<Timer>(*this, seconds, std::move(work));
}

std::unique_ptr<DispatchSource> VirtualTime::makeSource(Work handler) {
    return std::make_unique<Source>(*this, std::move(handler));
}

void VirtualTime::advance(double seconds) {
    const auto target = microseconds_ + toMicroseconds(seconds);
    for (;;) {
        std::unique_lock lock(mutex_);
        if (queue_.empty() || queue_.begin()->first.microseconds > target)
            break;
        auto node = queue_.extract(queue_.begin());
        microseconds_ = std::max(microseconds_, node.key().microseconds);
        lock.unlock();
        node.mapped()();
    }
    microseconds_ = target;
}

std::size_t VirtualTime::pending() const {
    const std::lock_guard lock(mutex_);
    return queue_.size();
}

} // namespace brimlow::platform
