#pragma once

#include "platform/Clock.h"

namespace brimlow::platform {

/// The machine's clock. Suspended time counts: a tap after resume is never held for one before.
class SystemClock final : public Clock {
public:
    SystemClock();

    Instant now() const override;
    Date wallClock() const override;

private:
    std::int64_t offset_; // microseconds from the steady clock to the wall clock at launch
};

} // namespace brimlow::platform
