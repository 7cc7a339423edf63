#pragma once

#include "platform/Applications.h"
#include "platform/Session.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11PendingRequest.h"

namespace brimlow::platform {

class X11Windows : public Windows {
public:
    X11Windows(X11Connection& connection, Applications& applications)
        : connection_(connection), applications_(applications) {}

    std::optional<std::vector<Window>> list() override;
    std::optional<Window> find(std::uint32_t number) override;
    Outcome activate(std::uint32_t number) override;
    Outcome raise(std::uint32_t number) override;
    Outcome unhide(std::uint32_t number) override;
    Outcome hide(std::uint32_t number) override;
    Outcome close(std::uint32_t number) override;

private:
    Outcome check(std::uint32_t number);
    Outcome goToWorkspaceOf(std::uint32_t number);
    Outcome askToRaise(std::uint32_t number);
    Outcome askToStackAboveTop(std::uint32_t number);
    Outcome askForHidden(std::uint32_t number, std::uint32_t change);
    bool isHidden(std::uint32_t number);

    X11Connection& connection_;
    Applications& applications_;
    X11PendingRequest pending_;
};

} // namespace brimlow::platform
