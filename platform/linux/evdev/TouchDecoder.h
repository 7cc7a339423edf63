#pragma once

#include "platform/MultitouchSupport.h"
#include "platform/linux/evdev/ContactScale.h"
#include "platform/linux/evdev/TrackpadDescription.h"

#include <cstdint>
#include <span>
#include <vector>

namespace brimlow::platform {

/// Numbers contacts; all pads of a process share one, so that no two contacts are mistaken for each
/// other.
class ContactIdentities {
public:
    /// 1, 2, … and after two thousand million from 1 again.
    std::int32_t next() {
        last_ = last_ == INT32_MAX ? 1 : last_ + 1;
        return last_;
    }

private:
    std::int32_t last_ = 0;
};

/// Turns one pad's kernel events into contacts. Pure: no clock, no input or output, and no
/// allocation once constructed. Any one thread.
///
/// A contact that lifts is listed once more with MTContactLifted. One that turns out to be a palm,
/// or that spans a gap in the events, vanishes without that: it can become no tap, and whatever
/// else its finger does goes unreported until the kernel announces a new contact.
class TouchDecoder {
public:
    /// The pad is taken to be untouched, with all axes at 0: see beginResync().
    TouchDecoder(const TrackpadDescription& description, ContactIdentities& identities);

    /// True when the event completed a change of a contact: then contacts() is a new frame. Events
    /// that make no sense for the pad are ignored.
    bool feed(const input_event& event);

    /// Until endResync(), events tell what the state is, not what happened: the kernel sends
    /// changes only, so this is for a device that was just opened and for one that lost events.
    /// True when contacts vanished.
    bool beginResync();
    /// Whatever touches now stays unreported until it is lifted.
    void endResync();

    /// The contacts of the last frame, lifted ones included. Valid until the next call.
    std::span<const MTFinger> contacts() const { return contacts_; }

    /// How many contacts a frame can have.
    std::size_t maximumContacts() const { return 2 * slots_.size(); }

private:
    enum class Phase {
        absent,
        hovering,
        touching,
        ignored, // a palm, or older than our knowledge of it
    };

    struct Slot {
        // As staged by the events since the last SYN_REPORT.
        std::int32_t trackingId = -1;
        std::int32_t toolType = MT_TOOL_FINGER;
        std::int32_t distance = 0;
        ContactValues values;
        bool renewed = false; // a tracking id was assigned since the last SYN_REPORT

        // As of the last SYN_REPORT.
        Phase phase = Phase::absent;
        bool silent = false; // ends by vanishing
        MTFinger finger;
    };

    /// The keys of a pad without usable slots. The kernel sets one tool at a time.
    struct Tools {
        bool touch = false;
        bool finger = false;
        unsigned several = 0;     // one bit for each of the tools of two and more fingers
        bool wereSeveral = false; // since the pad was last untouched
    };

    void absolute(std::uint16_t code, std::int32_t value);
    void absoluteOfSlot(Slot& slot, std::uint16_t code, std::int32_t value);
    void key(std::uint16_t code, bool down);
    bool lose();
    void ignoreWhatTouches();
    void stageSingleContact();
    bool pressureCounts() const;

    bool commit();
    bool commitSlot(Slot& slot, bool pressureCounts);
    bool end(Slot& slot);
    bool vanish(Slot& slot);
    bool list(Slot& slot, Phase phase, bool pressureCounts);

    ContactIdentities& identities_;
    ContactScale scale_;
    bool multitouch_;
    bool hasFingerTool_;
    std::vector<Slot> slots_;
    std::vector<MTFinger> contacts_;
    std::size_t currentSlot_ = 0; // slots_.size() while the kernel speaks of one we do not follow
    std::int32_t padPressure_ = 0;
    Tools tools_;
    bool dirty_ = false; // events since the last SYN_REPORT
    bool resync_ = false;
    bool dropping_ = false; // between SYN_DROPPED and the next SYN_REPORT
};

} // namespace brimlow::platform
