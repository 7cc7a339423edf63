#include "platform/SystemClock.h"

#include <ctime>

namespace brimlow::platform {

namespace {

std::int64_t microseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000 + time.tv_nsec / 1000;
}

} // namespace

SystemClock::SystemClock() : offset_(microseconds(CLOCK_REALTIME) - microseconds(CLOCK_BOOTTIME)) {}

Instant SystemClock::now() const {
    return {microseconds(CLOCK_BOOTTIME) + offset_};
}

Date SystemClock::wallClock() const {
    return {static_cast<double>(microseconds(CLOCK_REALTIME)) / 1e6};
}

} // namespace brimlow::platform
