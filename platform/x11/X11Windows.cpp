#include "platform/x11/X11Windows.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11WindowFacts.h"
#include "platform/x11/X11WindowManager.h"

#include <algorithm>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

// As _NET_ACTIVE_WINDOW and its kin count them: requests of pagers and tools like us are obeyed,
// those of ordinary applications are weighed against the user's last input.
constexpr std::uint32_t fromPager = 2;

enum StateChange : std::uint32_t { removeState = 0, addState = 1 };

// The managed windows bottom to top; none where the manager has written no list yet.
std::vector<xcb_window_t> managedWindows(X11Connection& connection) {
    X11PropertyRequest stacking(connection, connection.root(), Atom::netClientListStacking);
    X11PropertyRequest list(connection, connection.root(), Atom::netClientList);
    const auto stacked = stacking.take();
    const auto listed = list.takeValues(XCB_ATOM_WINDOW);
    return stacked && stacked->type == XCB_ATOM_WINDOW ? stacked->values(XCB_ATOM_WINDOW) : listed;
}

// A few milliseconds as a rule. A manager that takes longer than the limit is asked to go on all
// the same.
void awaitWorkspace(X11Connection& connection, std::uint32_t workspace) {
    using namespace std::chrono;
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
    const auto numbers = managedWindows(connection_);
    const auto activeNumber = activeRequest.takeValue(XCB_ATOM_WINDOW);

    std::vector<X11WindowRequest> requests;
    requests.reserve(numbers.size());
    for (const xcb_window_t number : numbers)
        requests.emplace_back(connection_, number);
    const auto catalogue = applications_.catalogue();
    std::vector<Window> windows;
    for (X11WindowRequest& request : requests) {
        if (auto window = request.take(*catalogue)) {
            window->active = window->number == activeNumber;
            windows.push_back(std::move(*window));
        }
    }
    if (connection_.lost())
        return std::nullopt;
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
    const auto numbers = managedWindows(connection_);
    if (std::ranges::find(numbers, number) == numbers.end())
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
    return connection_.askWindowManager(number, Atom::netActiveWindow,
                                        {fromPager, connection_.serverTime()});
}

Outcome X11Windows::raise(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    const auto manager = runningWindowManager(connection_);
    if (manager && manager->understands(connection_, Atom::netRestackWindow))
        return connection_.askWindowManager(number, Atom::netRestackWindow,
                                            {fromPager, XCB_NONE, XCB_STACK_MODE_ABOVE});
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_.get(), number, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(connection_.get());
    return connection_.lost() ? connectionLost() : Outcome::success();
}

Outcome X11Windows::hide(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    return connection_.askWindowManager(
        number, Atom::netWmState,
        {addState, connection_.atom(Atom::netWmStateHidden), 0, fromPager});
}

Outcome X11Windows::unhide(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    return connection_.askWindowManager(
        number, Atom::netWmState,
        {removeState, connection_.atom(Atom::netWmStateHidden), 0, fromPager});
}

Outcome X11Windows::close(std::uint32_t number) {
    if (const auto checked = check(number); !checked)
        return checked;
    return connection_.askWindowManager(number, Atom::netCloseWindow,
                                        {connection_.serverTime(), fromPager});
}

} // namespace brimlow::platform
