#pragma once

#include "platform/Session.h"
#include "platform/x11/X11Atoms.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <memory>

namespace brimlow::platform {

/// A connection of our own to the X server, apart from any toolkit's. It selects no events but
/// those of one window of its own, and nobody ever waits for an event here. Main thread only.
class X11Connection {
public:
    /// `displayName` as in $DISPLAY; empty takes $DISPLAY itself. Null and a reason where that
    /// server cannot be reached.
    static std::unique_ptr<X11Connection> open(const QByteArray& displayName, QString& reason);

    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    xcb_connection_t* get() const { return connection_; }
    int screen() const { return screen_; }
    xcb_window_t root() const { return root_; }
    xcb_atom_t atom(Atom atom) const { return atoms_[atom]; }
    /// Whether the server tells which process a window's client is (X-Resource 1.2).
    bool tellsClientPids() const { return tellsClientPids_; }

    /// Throws away what came in unasked, and says whether the server has gone. Once it has, all
    /// replies are missing at once and nothing blocks.
    bool lost();

    /// The server's clock now; XCB_CURRENT_TIME when the server has gone. One round trip.
    xcb_timestamp_t serverTime();

    /// Asks the window manager for something concerning `window`, and does not wait.
    Outcome askWindowManager(xcb_window_t window, Atom message,
                             const std::array<std::uint32_t, 5>& data);
    /// The same with an event of another kind, of 32 bytes.
    Outcome tellWindowManager(const char* event);

private:
    X11Connection(xcb_connection_t* connection, int screen);
    void prepare();

    xcb_connection_t* connection_;
    int screen_;
    xcb_window_t root_;
    xcb_window_t ownWindow_ = XCB_NONE;
    X11Atoms atoms_;
    bool tellsClientPids_ = false;
};

/// The one wording for a server that has gone.
Outcome connectionLost();

} // namespace brimlow::platform
