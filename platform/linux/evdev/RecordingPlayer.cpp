#include "platform/linux/evdev/RecordingPlayer.h"

#include <sys/timerfd.h>

#include <cmath>
#include <ctime>

namespace brimlow::platform {

namespace {

double monotonicTime() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace

RecordingPlayer::RecordingPlayer(EventLoop& loop, Recording recording,
                                 ContactIdentities& identities, ContactFrames& frames,
                                 std::function<void()> leftMouseDown)
    : loop_(loop), recording_(std::move(recording)),
      feed_(recording_.description, identities, frames), leftMouseDown_(std::move(leftMouseDown)),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
    loop_.watch(timer_.get(), [this](std::uint32_t) { playDue(); });
}

RecordingPlayer::~RecordingPlayer() {
    loop_.unwatch(timer_.get());
}

void RecordingPlayer::start() {
    if (state_ == State::playing)
        return;
    state_ = State::playing;
    offset_ = monotonicTime() - secondsOf(recording_.events.front());
    waitForNext();
}

double RecordingPlayer::dueTime(const input_event& event) const {
    return secondsOf(event) + offset_;
}

void RecordingPlayer::playDue() {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const auto size = read(timer_.get(), &expirations, sizeof expirations);
    const double now = monotonicTime();
    while (next_ < recording_.events.size() && dueTime(recording_.events[next_]) <= now) {
        const input_event& event = recording_.events[next_++];
        if (isLeftPress(event))
            leftMouseDown_();
        feed_.feed(event);
    }
    waitForNext();
}

/// A late wake-up delays one event and none of those after it.
void RecordingPlayer::waitForNext() {
    if (next_ == recording_.events.size())
        return;
    const double due = dueTime(recording_.events[next_]);
    itimerspec when{};
    when.it_value.tv_sec = static_cast<time_t>(due);
    when.it_value.tv_nsec = std::lround((due - std::floor(due)) * 1e9) % 1'000'000'000;
    timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME, &when, nullptr);
}

} // namespace brimlow::platform
