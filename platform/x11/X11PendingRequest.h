#pragma once

#include "platform/Session.h"

#include <chrono>
#include <vector>

namespace brimlow::platform {

/// The last window that the manager was asked to bring to the top or to activate. Managers answer
/// some milliseconds later; until then the list shows what was asked for as done.
class X11PendingRequest {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// What a manager has not done by then it has refused, or something else came in between.
    static constexpr std::chrono::milliseconds patience{200};

    void raised(std::uint32_t number, Time now) { top_ = {number, now + patience}; }
    void activated(std::uint32_t number, Time now) { top_ = active_ = {number, now + patience}; }

    /// Brings what the server says, bottom to top, to where it will be. A request is forgotten as
    /// soon as the server agrees, its window has gone, or its time is over.
    void applyTo(std::vector<Window>& windows, Time now);

private:
    struct Request {
        std::uint32_t number = 0; // 0: none
        Time until;
    };

    Request top_;
    Request active_;
};

} // namespace brimlow::platform
