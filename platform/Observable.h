#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace brimlow::platform {

class ObserverList;

/// Keeps an observer attached for as long as it lives. May be destroyed at any time on the main
/// thread: from inside the observer itself, and after the observed object is gone.
class Subscription {
public:
    Subscription() = default;
    Subscription(Subscription&& other) noexcept { swap(other); }
    Subscription& operator=(Subscription&& other) noexcept {
        Subscription old(std::move(other));
        swap(old);
        return *this;
    }
    ~Subscription();

private:
    friend class ObserverList;
    Subscription(std::weak_ptr<ObserverList> list, std::uint64_t id)
        : list_(std::move(list)), id_(id) {}
    void swap(Subscription& other) noexcept {
        list_.swap(other.list_);
        std::swap(id_, other.id_);
    }

    std::weak_ptr<ObserverList> list_;
    std::uint64_t id_ = 0;
};

/// The observers of one object, told in the order in which they subscribed. One that subscribes
/// while others are being told hears of the next change. Main thread only.
class ObserverList : public std::enable_shared_from_this<ObserverList> {
public:
    using Observer = std::function<void()>;

    Subscription add(Observer observer);
    void notify();

private:
    friend class Subscription;
    struct Entry {
        std::uint64_t id; // 0 once unsubscribed
        Observer observer;
    };

    void remove(std::uint64_t id);
    void sweep();

    // Entries live on the heap one by one: an observer that subscribes another one while it runs
    // must not move the function object it runs from.
    std::vector<std::unique_ptr<Entry>> entries_;
    std::uint64_t lastId_ = 0;
    int depth_ = 0;
    bool dirty_ = false;
};

/// A model object whose observers are told before each change. They read the new value on the next
/// turn of the event loop. Main thread only.
class ObservableObject {
public:
    ObservableObject() : observers_(std::make_shared<ObserverList>()) {}
    ObservableObject(const ObservableObject&) = delete;
    ObservableObject& operator=(const ObservableObject&) = delete;

    [[nodiscard]] Subscription observeWillChange(ObserverList::Observer observer) {
        return observers_->add(std::move(observer));
    }

protected:
    ~ObservableObject() = default;
    void willChange() { std::shared_ptr<ObserverList>(observers_)->notify(); }

private:
    template<typename T>
    friend class Published;
    std::shared_ptr<ObserverList> observers_;
};

/// A property whose every assignment is announced by its owner, changed or not.
template<typename T>
class Published {
public:
    explicit Published(ObservableObject& owner, T initial = {})
        : owner_(owner), value_(std::move(initial)) {}
    Published(const Published&) = delete;

    template<typename U>
    requires std::assignable_from<T&, U> Published& operator=(U&& value) {
        owner_.willChange();
        value_ = std::forward<U>(value);
        return *this;
    }

    const T& get() const { return value_; }
    operator const T&() const { return value_; } // NOLINT(google-explicit-constructor)
    const T* operator->() const { return &value_; }

private:
    ObservableObject& owner_;
    T value_;
};

/// Lets work that outlives its owner do nothing once the owner is gone. Make it the owner's last
/// member. Guarded work may be made on any thread while the owner lives, and runs on the main
/// thread.
class Lifetime {
public:
    Lifetime() : token_(std::make_shared<char>()) {}
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    template<typename Function>
    auto guard(Function function) const {
        return [weak = std::weak_ptr<char>(token_),
                inner = std::move(function)](auto&&... arguments) mutable {
            if (!weak.expired())
                inner(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<char> token_;
};

} // namespace brimlow::platform
