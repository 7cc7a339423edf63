#include "platform/x11/X11WindowManager.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

bool X11WindowManager::understands(const X11Connection& connection, Atom atom) const {
    return std::ranges::find(understood, connection.atom(atom)) != understood.end();
}

std::optional<X11WindowManager> runningWindowManager(X11Connection& connection) {
    X11PropertyRequest rootCheck(connection, connection.root(), Atom::netSupportingWmCheck);
    X11PropertyRequest supported(connection, connection.root(), Atom::netSupported);
    const auto window = rootCheck.takeValue(XCB_ATOM_WINDOW);
    auto understood = supported.takeValues(XCB_ATOM_ATOM);
    if (!window)
        return std::nullopt;

    X11PropertyRequest ownCheck(connection, *window, Atom::netSupportingWmCheck);
    X11PropertyRequest ownName(connection, *window, Atom::netWmName);
    const bool alive = ownCheck.takeValue(XCB_ATOM_WINDOW) == window;
    const auto name = ownName.take();
    if (!alive)
        return std::nullopt;
    return X11WindowManager{name ? textOf(connection, *name) : QString(), std::move(understood)};
}

Outcome noWindowManager(X11Connection& connection) {
    return connection.lost() ? connectionLost()
                             : Outcome::failure(u"no window manager is running"_s);
}

} // namespace brimlow::platform
