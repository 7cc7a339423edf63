#pragma once

#include "platform/Observable.h"

#include <functional>

namespace brimlow {

/// A published property that is saved after each assignment, but not for its initial value.
template<typename T>
class SavedProperty {
public:
    SavedProperty(platform::ObservableObject& owner, T initial, std::function<void()> save)
        : value_(owner, std::move(initial)), save_(std::move(save)) {}

    SavedProperty& operator=(T value) {
        value_ = std::move(value);
        save_();
        return *this;
    }

    const T& get() const { return value_.get(); }
    operator const T&() const { return get(); } // NOLINT(google-explicit-constructor)
    const T* operator->() const { return &get(); }

private:
    platform::Published<T> value_;
    std::function<void()> save_;
};

} // namespace brimlow
