#pragma once

#include "platform/Date.h"

namespace brimlow::platform {

/// The time of day. May be asked on any thread.
class Clock {
public:
    virtual ~Clock() = default;

    /// For intervals: the wall time at launch carried on by a steady clock, so that a clock
    /// that is set back swallows no tap.
    virtual Instant now() const = 0;

    /// For dates that are stored: what the system's clock says at this moment.
    virtual Date wallClock() const = 0;
};

} // namespace brimlow::platform
