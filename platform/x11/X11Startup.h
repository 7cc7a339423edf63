#pragma once

#include "platform/Session.h"
#include "platform/x11/X11Connection.h"

namespace brimlow::platform {

/// Startup notification as freedesktop.org describes it for X11.
class X11Startup final : public Startup {
public:
    explicit X11Startup(X11Connection& connection) : connection_(connection) {}

    QString begin(const DesktopEntry& application) override;
    void abandon(const QString& token) override;

private:
    X11Connection& connection_;
};

} // namespace brimlow::platform
