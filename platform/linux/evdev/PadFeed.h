#pragma once

#include "platform/linux/evdev/ContactFrames.h"
#include "platform/linux/evdev/Recording.h"
#include "platform/linux/evdev/TouchDecoder.h"

namespace brimlow::platform {

inline bool isLeftPress(const input_event& event) {
    return event.type == EV_KEY && event.code == BTN_LEFT && event.value == 1;
}

/// One pad's decoder, joined to the frames of all; its contacts end with it.
class PadFeed {
public:
    PadFeed(const TrackpadDescription& description, ContactIdentities& identities,
            ContactFrames& frames)
        : decoder_(description, identities), frames_(frames),
          pad_(frames.addPad(decoder_.maximumContacts())) {}
    ~PadFeed() { frames_.removePad(pad_, lastTime_); }
    PadFeed(const PadFeed&) = delete;
    PadFeed& operator=(const PadFeed&) = delete;

    void feed(const input_event& event) {
        if (const double time = secondsOf(event); time > 0)
            lastTime_ = time;
        if (decoder_.feed(event))
            frames_.update(pad_, decoder_.contacts(), lastTime_);
    }
    void beginResync() {
        if (decoder_.beginResync())
            frames_.update(pad_, decoder_.contacts(), lastTime_);
    }
    void endResync() { decoder_.endResync(); }

private:
    TouchDecoder decoder_;
    ContactFrames& frames_;
    ContactFrames::PadId pad_;
    double lastTime_ = 0;
};

} // namespace brimlow::platform
