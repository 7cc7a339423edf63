#include "platform/Observable.h"

#include <algorithm>

namespace brimlow::platform {

Subscription::~Subscription() {
    if (auto list = list_.lock())
        list->remove(id_);
}

Subscription ObserverList::add(Observer observer) {
    const auto id = ++lastId_;
    entries_.push_back(std::make_unique<Entry>(Entry{id, std::move(observer)}));
    return {weak_from_this(), id};
}

void ObserverList::notify() {
    ++depth_;
    const std::size_t count = entries_.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (entries_[i]->id != 0)
            entries_[i]->observer();
    }
    if (--depth_ == 0 && dirty_)
        sweep();
}

void ObserverList::remove(std::uint64_t id) {
    const auto found = std::ranges::find(entries_, id, [](const auto& entry) { return entry->id; });
    if (found == entries_.end())
        return;
    if (depth_ == 0) {
        entries_.erase(found);
        return;
    }
    // The observer may be the one that is running now: its function object has to live on until
    // the round is over, so only its number is taken away here.
    (*found)->id = 0;
    dirty_ = true;
}

void ObserverList::sweep() {
    dirty_ = false;
    std::erase_if(entries_, [](const auto& entry) { return entry->id == 0; });
}

} // namespace brimlow::platform
