#pragma once

#include "platform/ApplicationCatalogue.h"
#include "platform/Session.h"
#include "platform/x11/X11Property.h"

#include <xcb/res.h>

#include <optional>

namespace brimlow::platform {

/// What _NET_WM_DESKTOP says of a window that is on every workspace.
constexpr std::uint32_t onAllWorkspaces = 0xffffffff;

/// Everything that is asked about one window for the list, sent at once and read later. Make the
/// requests of all windows first: the whole list then costs one round trip.
class X11WindowRequest {
public:
    X11WindowRequest(X11Connection& connection, xcb_window_t window);

    /// Absent when the window has gone in the meantime, and for desktops, docks and other
    /// furniture. `active` is left for the caller. Call once.
    std::optional<Window> take(const ApplicationCatalogue& catalogue);

private:
    pid_t takeClientPid();
    QString takeTitle();
    QString takeApplicationId(pid_t pid, const ApplicationCatalogue& catalogue);

    X11Connection& connection_;
    xcb_window_t window_;
    X11PropertyRequest netName_;
    X11PropertyRequest name_;
    X11PropertyRequest pid_;
    X11PropertyRequest workspace_;
    X11PropertyRequest state_;
    X11PropertyRequest type_;
    X11PropertyRequest class_;
    X11PropertyRequest gtkApplicationId_;
    xcb_res_query_client_ids_cookie_t clientIds_{};
};

} // namespace brimlow::platform
