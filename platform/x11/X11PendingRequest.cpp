#include "platform/x11/X11PendingRequest.h"

#include <algorithm>

namespace brimlow::platform {

void X11PendingRequest::applyTo(std::vector<Window>& windows, Time now) {
    const auto find = [&](const Request& request) {
        return request.number == 0 || now > request.until
                   ? windows.end()
                   : std::ranges::find(windows, request.number, &Window::number);
    };
    if (const auto active = find(active_); active == windows.end() || active->active) {
        active_ = {};
    } else {
        for (Window& window : windows)
            window.active = false;
        active->active = true;
        active->hidden = false;
    }
    if (const auto top = find(top_); top == windows.end() || top + 1 == windows.end())
        top_ = {};
    else
        std::rotate(top, top + 1, windows.end());
}

} // namespace brimlow::platform
