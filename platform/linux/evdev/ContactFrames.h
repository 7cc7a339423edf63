#pragma once

#include "platform/MultitouchSupport.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace brimlow::platform {

/// Puts the contacts of all pads into one sequence of frames. No allocation while the set of pads
/// stays the same. Any one thread.
class ContactFrames {
public:
    /// `fingers` is valid only during the call, and empty when nothing touches.
    using Sink = std::function<void(std::span<const MTFinger> fingers, double timestamp,
                                    std::int32_t frame)>;
    using PadId = std::int32_t;

    explicit ContactFrames(Sink sink) : sink_(std::move(sink)) {}

    PadId addPad(std::size_t maximumContacts);

    /// A new frame of one pad. When no finger touches any pad after it, a frame without the lifted
    /// ones follows at once.
    void update(PadId pad, std::span<const MTFinger> contacts, double timestamp);

    /// The pad is gone, and its contacts with it.
    void removePad(PadId pad, double timestamp);

private:
    struct Pad {
        PadId id;
        std::vector<MTFinger> contacts; // what goes on after its last frame
    };

    std::vector<Pad>::iterator find(PadId pad);
    void post(PadId updated, std::span<const MTFinger> contacts, double timestamp);

    Sink sink_;
    std::vector<Pad> pads_;
    std::vector<MTFinger> merged_;
    PadId lastId_ = 0;
    std::int32_t frame_ = 0;
};

} // namespace brimlow::platform
