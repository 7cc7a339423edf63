#pragma once

#include "platform/Clock.h"
#include "platform/MainQueue.h"

#include <cstdint>
#include <map>
#include <mutex>

namespace brimlow::platform {

/// A clock and a main queue that stand still until `advance` moves them. Work runs in the order of
/// its time, and of its coming where the times are equal.
///
/// Timers and sources must not outlive it.
class VirtualTime final : public Clock, public MainQueue {
public:
    /// Both clocks start at noon of 2026-01-02, UTC.
    static constexpr std::int64_t startSeconds = 1767355200;

    Instant now() const override { return {startSeconds * 1'000'000 + microseconds_}; }
    Date wallClock() const override {
        return {static_cast<double>(now().microseconds) / 1e6 + wallClockOffset_};
    }
    /// The user, or a time server, sets the wall clock.
    void setBackWallClock(double seconds) { wallClockOffset_ -= seconds; }

    void async(Work work) override;
    void after(double seconds, Work work) override;
    std::unique_ptr<RepeatingTimer> every(double seconds, Work work) override;
    std::unique_ptr<DispatchSource> makeSource(Work handler) override;

    /// Runs all that is due now, including what that work hands over for now.
    void run() { advance(0); }
    /// Moves on by `seconds`, running all that comes due, each at its own time.
    void advance(double seconds);

    /// Work that waits for its time, repeating timers included: 0 when nothing is left to happen.
    std::size_t pending() const;

private:
    class Timer;
    class Source;

    struct Due {
        std::int64_t microseconds;
        std::uint64_t order;
        auto operator<=>(const Due&) const = default;
    };

    void enqueue(double seconds, Work work);

    std::int64_t microseconds_ = 0; // since the start
    double wallClockOffset_ = 0;

    mutable std::mutex mutex_; // async and raise come from other threads
    std::map<Due, Work> queue_;
    std::uint64_t order_ = 0;
};

} // namespace brimlow::platform
