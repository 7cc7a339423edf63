#pragma once

#include "platform/Session.h"
#include "platform/x11/X11Connection.h"

#include <memory>

struct SnDisplay;

namespace brimlow::platform {

/// Startup notification as freedesktop.org describes it for X11. Nothing is kept of what was
/// announced: the program that starts says when it is done, and window managers give up waiting by
/// themselves.
class X11Startup final : public Startup {
public:
    /// `connection` outlives this object.
    explicit X11Startup(X11Connection& connection);

    QString begin(const DesktopEntry& application) override;
    void abandon(const QString& token) override;

private:
    struct Release {
        void operator()(SnDisplay* display) const;
    };

    X11Connection& connection_;
    std::unique_ptr<SnDisplay, Release> display_; // null when the server had gone
};

} // namespace brimlow::platform
