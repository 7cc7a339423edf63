#pragma once

#include "platform/MainQueue.h"
#include "platform/Observable.h"

#include <functional>
#include <utility>
#include <vector>

namespace brimlow {

/// Keeps a view up to date with its models: however many changes a turn of the event loop brings,
/// the view is refreshed once on the next one, when the models have their new values. Make it one
/// of the view's last members. Main thread only.
class Refresh {
public:
    Refresh(platform::MainQueue& queue, std::function<void()> refresh)
        : queue_(queue), refresh_(std::move(refresh)) {}

    void observe(platform::ObservableObject& model) {
        subscriptions_.push_back(model.observeWillChange([this] { soon(); }));
    }

    /// For what changes without a model.
    void soon() {
        if (std::exchange(queued_, true))
            return;
        queue_.async(lifetime_.guard([this] {
            queued_ = false;
            refresh_();
        }));
    }

private:
    platform::MainQueue& queue_;
    std::function<void()> refresh_;
    bool queued_ = false;
    std::vector<platform::Subscription> subscriptions_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
