#pragma once

#include "platform/x11/X11Connection.h"

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow::platform {

/// What a window's client wrote under one name. Clients write what they like: every reader takes
/// data of an unexpected type or length as absent.
struct X11Property {
    xcb_atom_t type = XCB_ATOM_NONE; // none when the window has no such property
    int format = 0;                  // bits per item: 8, 16 or 32
    QByteArray bytes;

    /// All items of a 32-bit property of type `expected`; else none.
    std::vector<std::uint32_t> values(xcb_atom_t expected) const;
};

/// A property that was asked for and not read yet. Make all requests of a batch first and take
/// their answers afterwards: then the whole batch costs one round trip.
class X11PropertyRequest {
public:
    X11PropertyRequest(X11Connection& connection, xcb_window_t window, Atom property);

    /// Absent when the window has gone (or the server).
    std::optional<X11Property> take();
    /// The items of a 32-bit property of type `expected`; none when there is no such property.
    std::vector<std::uint32_t> takeValues(xcb_atom_t expected);
    /// The first of them.
    std::optional<std::uint32_t> takeValue(xcb_atom_t expected);

private:
    xcb_connection_t* connection_;
    xcb_get_property_cookie_t cookie_;
};

} // namespace brimlow::platform
