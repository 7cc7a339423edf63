#pragma once

#include "platform/Applications.h"
#include "platform/Session.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Input.h"
#include "platform/x11/X11Startup.h"
#include "platform/x11/X11Windows.h"
#include "platform/x11/X11Workspaces.h"

#include <memory>

namespace brimlow::platform {

/// An X11 desktop with a window manager that keeps to the Extended Window Manager Hints.
class X11Session : public Session {
public:
    /// Null and a reason where the server cannot be reached. An empty name takes $DISPLAY.
    /// `applications` tell whose a window is, and outlive the session.
    static std::unique_ptr<X11Session> connect(const QByteArray& displayName,
                                               Applications& applications, QString& reason);

    Windows& windows() override { return windows_; }
    Workspaces& workspaces() override { return workspaces_; }
    Input& input() override { return input_; }
    Startup& startup() override { return startup_; }
    Abilities abilities() override;

    /// Becomes readable when the server has something for us or has gone; ask connectionLost() each
    /// time, which also reads what came.
    int connectionFd() const;
    /// Once true it stays so, and every request fails.
    bool connectionLost();

private:
    X11Session(std::unique_ptr<X11Connection> connection, Applications& applications);

    std::unique_ptr<X11Connection> connection_;
    X11Windows windows_;
    X11Workspaces workspaces_;
    X11Input input_;
    X11Startup startup_;
};

} // namespace brimlow::platform
