#pragma once

#include "platform/x11/X11Connection.h"

#include <QString>

#include <optional>
#include <vector>

namespace brimlow::platform {

/// The window manager that runs at this moment, as it presents itself.
struct X11WindowManager {
    QString name;                       // "Openbox"; empty when it does not say
    std::vector<xcb_atom_t> understood; // _NET_SUPPORTED

    bool understands(const X11Connection& connection, Atom atom) const;
};

/// Absent when none runs: one that has died leaves its properties behind, so its own window is
/// asked too. Two round trips.
std::optional<X11WindowManager> runningWindowManager(X11Connection& connection);

/// Why nothing can be asked of windows: the server has gone, or no window manager runs.
Outcome noWindowManager(X11Connection& connection);

} // namespace brimlow::platform
