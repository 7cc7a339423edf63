#pragma once

#include "platform/linux/evdev/EventLoop.h"
#include "platform/linux/evdev/PadFeed.h"

#include <functional>

namespace brimlow::platform {

/// Plays a recording in real time, once. The loop's thread only.
class RecordingPlayer {
public:
    RecordingPlayer(EventLoop& loop, Recording recording, ContactIdentities& identities,
                    ContactFrames& frames, std::function<void()> leftMouseDown);
    ~RecordingPlayer();
    RecordingPlayer(const RecordingPlayer&) = delete;
    RecordingPlayer& operator=(const RecordingPlayer&) = delete;

    /// The first event is due now. A second call changes nothing.
    void start();

    /// What touches at the beginning or at the end of a silence vanishes.
    void beginSilence() { feed_.beginResync(); }
    void endSilence() { feed_.endResync(); }

private:
    double dueTime(const input_event& event) const;
    void playDue();
    void waitForNext();

    EventLoop& loop_;
    Recording recording_;
    PadFeed feed_;
    std::function<void()> leftMouseDown_;
    FileDescriptor timer_;
    double offset_ = 0; // seconds from the recording's clock to CLOCK_MONOTONIC
    std::size_t next_ = 0;
    enum class State { waiting, playing } state_ = State::waiting;
};

} // namespace brimlow::platform
