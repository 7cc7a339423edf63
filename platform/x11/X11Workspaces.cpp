#include "platform/x11/X11Workspaces.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11WindowManager.h"

using namespace Qt::StringLiterals;

namespace brimlow::platform {

Outcome X11Workspaces::step(Direction direction) {
    if (connection_.lost() || !runningWindowManager(connection_))
        return noWindowManager(connection_);
    X11PropertyRequest currentRequest(connection_, connection_.root(), Atom::netCurrentDesktop);
    X11PropertyRequest countRequest(connection_, connection_.root(), Atom::netNumberOfDesktops);
    const auto current = currentRequest.takeValue(XCB_ATOM_CARDINAL);
    const auto count = countRequest.takeValue(XCB_ATOM_CARDINAL);
    if (!current || !count)
        return Outcome::failure(u"the window manager tells of no workspaces"_s);

    const bool atEnd = direction == Direction::left ? *current == 0 : *current + 1 >= *count;
    if (atEnd)
        return Outcome::success();
    const std::uint32_t target = direction == Direction::left ? *current - 1 : *current + 1;
    return connection_.askWindowManager(connection_.root(), Atom::netCurrentDesktop,
                                        {target, connection_.serverTime()});
}

} // namespace brimlow::platform
