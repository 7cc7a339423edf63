#include "platform/x11/X11Input.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

constexpr std::uint16_t keyW = 13;
constexpr std::uint64_t commandOnly = 0x100000;

} // namespace

Outcome X11Input::post(const KeyEvent& event) {
    if (event.keyCode != keyW || event.flags != commandOnly)
        return Outcome::failure(u"this session knows no meaning for that key"_s);
    return event.down ? closeActiveWindow() : Outcome::success();
}

Outcome X11Input::closeActiveWindow() {
    const auto windows = windows_.list();
    if (!windows)
        return Outcome::failure(u"the windows cannot be listed"_s);
    const auto active = std::ranges::find_if(*windows, &Window::active);
    if (active == windows->end() || !active->inTaskList)
        return Outcome::failure(u"no window is active"_s);
    return windows_.close(active->number);
}

} // namespace brimlow::platform
