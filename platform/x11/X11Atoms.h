#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>

namespace brimlow::platform {

/// The names on the X server that this folder speaks of.
enum class Atom : std::size_t {
    utf8String,
    compoundText,
    gtkApplicationId,
    netActiveWindow,
    netClientList,
    netClientListStacking,
    netCloseWindow,
    netCurrentDesktop,
    netNumberOfDesktops,
    netRestackWindow,
    netSupported,
    netSupportingWmCheck,
    netWmDesktop,
    netWmName,
    netWmPid,
    netWmState,
    netWmStateHidden,
    netWmStateSkipTaskbar,
    netWmWindowType,
    typeCombo,
    typeDesktop,
    typeDialog,
    typeDnd,
    typeDock,
    typeDropdownMenu,
    typeMenu,
    typeNormal,
    typeNotification,
    typePopupMenu,
    typeSplash,
    typeToolbar,
    typeTooltip,
    typeUtility,
    wmChangeState,
    wmClass,
    wmName,
    count,
};

/// Their numbers on one server.
class X11Atoms {
public:
    X11Atoms() = default;
    /// Asks for all at once: one round trip. Those that could not be had are XCB_ATOM_NONE.
    explicit X11Atoms(xcb_connection_t* connection);

    xcb_atom_t operator[](Atom atom) const { return values_[static_cast<std::size_t>(atom)]; }

private:
    std::array<xcb_atom_t, static_cast<std::size_t>(Atom::count)> values_{};
};

} // namespace brimlow::platform
