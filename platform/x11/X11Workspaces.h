#pragma once

#include "platform/Session.h"
#include "platform/x11/X11Connection.h"

namespace brimlow::platform {

class X11Workspaces : public Workspaces {
public:
    explicit X11Workspaces(X11Connection& connection) : connection_(connection) {}

    Outcome step(Direction direction) override;

private:
    X11Connection& connection_;
};

} // namespace brimlow::platform
