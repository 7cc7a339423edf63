#include "platform/x11/X11Windows.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11WindowFacts.h"
#include "platform/x11/X11WindowManager.h"

#include <algorithm>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using std::chrono::steady_clock;

namespace brimlow::platform {

namespace {

// As _NET_ACTIVE_WINDOW and its kin count them: requests of pagers and tools like us are obeyed,
// those of ordinary applications are weighed against the user's last input.
constexpr std::uint32_t fromPager = 2;

enum StateChange : std::uint32_t { removeState = 0, addState = 1 };

constexpr std::uint32_t iconicState = 3; // of WM_CHANGE_STATE

struct ManagedWindows {
    std::vector<xcb_window_t> stacked; // bottom to top
    std::vector<xcb_window_t> mapped;  // from the one that was opened first

    bool contain(xcb_window_t window) const {
        return std::ranges::find(stacked, window) != stacked.end();
    }
    std::uint32_t ageOf(xcb_window_t window) const {
        return static_cast<std::uint32_t>(std::ranges::find(mapped, window) - mapped.begin());
    }
};

// None where the manager has written no list yet.
ManagedWindows managedWindows(X11Connection& connection) {
    X11PropertyRequest stacking(connection, connection.root(), Atom::netClientListStacking);
    X11PropertyRequest list(connection, connection.root(), Atom::netClientList);
    const auto stacked = stacking.take();
    auto mapped = list.takeValues(XCB_ATOM_WINDOW);
    if (stacked && stacked->type == XCB_ATOM_WINDOW)
        return {stacked->values(XCB_ATOM_WINDOW), std::move(mapped)};
    return {mapped, mapped};
}

// A few milliseconds as a rule. A manager that takes longer than the limit is asked to go on all
// the same.
void awaitWorkspace(X11Connection& connection, std::uint32_t workspace) {
    using std::chrono::milliseconds;
    const auto deadline = steady_clock::now() + milliseconds(200);
    while (!connection.lost() && steady_clock::now() < deadline) {
        X11PropertyRequest current(connection, connection.root(), Atom::netCurrentDesktop);
        if (current.takeValue(XCB_ATOM_CARDINAL) == workspace)
            return;
        std::this_thread::sleep_for(milliseconds(1));
    }
}

} // namespace

std::optional<std::vector<Window>> X11Windows::list() {
    if (connection_.lost() || !runningWindowManager(connection_))
        return std::nullopt;
    X11PropertyRequest activeRequest(connection_, connection_.root(), Atom::netActiveWindow);
    const auto managed = managedWindows(connection_);
    const auto activeNumber = activeRequest.takeValue(XCB_ATOM_WINDOW);

    std::vector<X11WindowRequest> requests;
    requests.reserve(managed.stacked.size());
    for (const xcb_window_t number : managed.stacked)
        requests.emplace_back(connection_, number);
    const auto catalogue = applications_.catalogue();
    std::vector<Window> windows;
    for (X11WindowRequest& request : requests) {
        if (auto window = request.take(*catalogue)) {
            window->active = window->number == activeNumber;
            window->age = managed.ageOf(window->number);
            windows.push_back(std::move(*window));
        }
    }
    if (connection_.lost())
        return std::nullopt;
    pending_.applyTo(windows, steady_clock::now());
    return windows;
}

std::optional<Window> X11Windows::find(std::uint32_t number) {
    if (!check(number))
        return std::nullopt;
    X11PropertyRequest activeRequest(connection_, connection_.root(), Atom::netActiveWindow);
    X11WindowRequest request(connection_, number);
    const bool active = activeRequest.takeValue(XCB_ATOM_WINDOW) == number;
    auto window = request.take(*applications_.catalogue());
    if (window)
        window->active = active;
    return window;
}

Outcome X11Windows::check(std::uint32_t number) {
    if (connection_.lost() || !runningWindowManager(connection_))
        return noWindowManager(connection_);
    if (!managedWindows(connection_).contain(number))
        return Outcome::failure(u"that window does not exist any more"_s);
    return Outcome::success();
}

// The active-window message alone does not do it: some managers ignore it for a window elsewhere,
// others fetch the window here. And a request to activate whose time is older than the switch it
// follows loses against the manager's own choice of focus there, so the switch is awaited.
Outcome X11Windows::goToWorkspaceOf(std::uint32_t number) {
    X11PropertyRequest own(connection_, number, Atom::netWmDesktop);
    X11PropertyRequest current(connection_, connection_.root(), Atom::netCurrentDesktop);
    const auto target = own.takeValue(XCB_ATOM_CARDINAL);
    const auto here = current.takeValue(XCB_ATOM_CARDINAL);
    if (!target || target == here || target == onAllWorkspaces)
        return Outcome::success();
    const auto asked = connection_.askWindowManager(connection_.root(), Atom::netCurrentDesktop,
                                                    {*target, connection_.serverTime()});
    awaitWorkspace(connection_, *target);
    return asked;
}

Outcome X11Windows::activate(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    if (const auto moved = goToWorkspaceOf(number); !moved)
        return moved;
    const auto asked = connection_.askWindowManager(number, Atom::netActiveWindow,
                                                    {fromPager, connection_.serverTime()});
    if (asked)
        pending_.activated(number, steady_clock::now());
    return asked;
}

Outcome X11Windows::raise(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    const auto asked = askToRaise(number);
    if (asked)
        pending_.raised(number, steady_clock::now());
    return asked;
}

Outcome X11Windows::askToRaise(std::uint32_t number) {
    const auto manager = runningWindowManager(connection_);
    if (manager && manager->understands(connection_, Atom::netRestackWindow))
        return connection_.askWindowManager(number, Atom::netRestackWindow,
                                            {fromPager, XCB_NONE, XCB_STACK_MODE_ABOVE});
    return askToStackAboveTop(number);
}

// As a request of a window's own client, but above a named neighbour: without one some managers
// take it as a cry for attention, activate the window and fetch it from its workspace.
Outcome X11Windows::askToStackAboveTop(std::uint32_t number) {
    const auto stacked = managedWindows(connection_).stacked;
    const auto top = std::find_if(stacked.rbegin(), stacked.rend(),
                                  [&](xcb_window_t window) { return window != number; });
    if (top == stacked.rend())
        return Outcome::success();
    xcb_configure_request_event_t request{};
    request.response_type = XCB_CONFIGURE_REQUEST;
    request.stack_mode = XCB_STACK_MODE_ABOVE;
    request.parent = connection_.root();
    request.window = number;
    request.sibling = *top;
    request.value_mask = XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE;
    return connection_.tellWindowManager(reinterpret_cast<const char*>(&request));
}

// Some managers (KWin, Mutter) only know the older of the two requests, others (Openbox) ignore
// that one for windows of other workspaces. Whoever knows both does it once.
Outcome X11Windows::hide(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    if (const auto asked = askForHidden(number, addState); !asked)
        return asked;
    return connection_.askWindowManager(number, Atom::wmChangeState, {iconicState});
}

Outcome X11Windows::unhide(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    if (!isHidden(number))
        return Outcome::success();
    return askForHidden(number, removeState);
}

Outcome X11Windows::askForHidden(std::uint32_t number, std::uint32_t change) {
    return connection_.askWindowManager(
        number, Atom::netWmState, {change, connection_.atom(Atom::netWmStateHidden), 0, fromPager});
}

// Managers take the request as one to show the window, with all that this brings about, even where
// it is not hidden.
bool X11Windows::isHidden(std::uint32_t number) {
    X11PropertyRequest state(connection_, number, Atom::netWmState);
    const auto states = state.takeValues(XCB_ATOM_ATOM);
    return std::ranges::find(states, connection_.atom(Atom::netWmStateHidden)) != states.end();
}

Outcome X11Windows::close(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    return connection_.askWindowManager(number, Atom::netCloseWindow,
                                        {connection_.serverTime(), fromPager});
}

} // namespace brimlow::platform
