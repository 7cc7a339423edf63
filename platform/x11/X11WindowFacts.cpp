#include "platform/x11/X11WindowFacts.h"

#include "platform/linux/identity/WindowIdentity.h"
#include "platform/x11/X11Reply.h"
#include "platform/x11/X11Text.h"

#include <QList>

#include <algorithm>
#include <array>
#include <limits>

namespace brimlow::platform {

namespace {

enum class Role { ordinary, helper, furniture };

struct TypeRole {
    Atom type;
    Role role;
};

constexpr std::array roles = {
    TypeRole{Atom::typeNormal, Role::ordinary},
    TypeRole{Atom::typeDialog, Role::ordinary},
    TypeRole{Atom::typeUtility, Role::helper},
    TypeRole{Atom::typeToolbar, Role::helper},
    TypeRole{Atom::typeMenu, Role::helper},
    TypeRole{Atom::typeDesktop, Role::furniture},
    TypeRole{Atom::typeDock, Role::furniture},
    TypeRole{Atom::typeSplash, Role::furniture},
    TypeRole{Atom::typeNotification, Role::furniture},
    TypeRole{Atom::typeTooltip, Role::furniture},
    TypeRole{Atom::typeDropdownMenu, Role::furniture},
    TypeRole{Atom::typePopupMenu, Role::furniture},
    TypeRole{Atom::typeCombo, Role::furniture},
    TypeRole{Atom::typeDnd, Role::furniture},
};

// A window may name several types, the one it would rather be first; the first known one counts.
Role roleOf(const X11Connection& connection, const std::vector<std::uint32_t>& types) {
    for (const std::uint32_t type : types) {
        const auto* known = std::ranges::find_if(
            roles, [&](const TypeRole& each) { return connection.atom(each.type) == type; });
        if (known != roles.end())
            return known->role;
    }
    return Role::ordinary;
}

std::optional<int> workspaceNumber(std::optional<std::uint32_t> desktop) {
    constexpr std::uint32_t greatest = std::numeric_limits<int>::max();
    static_assert(onAllWorkspaces > greatest);
    if (!desktop || *desktop > greatest)
        return std::nullopt;
    return static_cast<int>(*desktop);
}

// No process has a greater one, and as a negative one it would mean many processes.
pid_t processNumber(std::uint32_t stated) {
    constexpr std::uint32_t greatest = std::numeric_limits<pid_t>::max();
    return stated > greatest ? 0 : static_cast<pid_t>(stated);
}

} // namespace

X11WindowRequest::X11WindowRequest(X11Connection& connection, xcb_window_t window)
    : connection_(connection), window_(window), netName_(connection, window, Atom::netWmName),
      name_(connection, window, Atom::wmName), pid_(connection, window, Atom::netWmPid),
      workspace_(connection, window, Atom::netWmDesktop),
      state_(connection, window, Atom::netWmState),
      type_(connection, window, Atom::netWmWindowType), class_(connection, window, Atom::wmClass),
      gtkApplicationId_(connection, window, Atom::gtkApplicationId) {
    if (!connection.tellsClientPids())
        return;
    const xcb_res_client_id_spec_t spec = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    clientIds_ = xcb_res_query_client_ids(connection.get(), 1, &spec);
}

std::optional<Window> X11WindowRequest::take(const ApplicationCatalogue& catalogue) {
    // Every answer is taken, also of windows that drop out: an answer not taken stays in memory.
    const auto state = state_.take();
    const auto types = type_.takeValues(XCB_ATOM_ATOM);
    const auto workspace = workspace_.takeValue(XCB_ATOM_CARDINAL);
    Window window;
    window.number = window_;
    window.title = takeTitle();
    window.ownerPid = takeClientPid();
    window.applicationId = takeApplicationId(window.ownerPid, catalogue);

    const Role role = roleOf(connection_, types);
    if (!state || role == Role::furniture)
        return std::nullopt;
    const auto states = state->values(XCB_ATOM_ATOM);
    const auto has = [&](Atom atom) {
        return std::ranges::find(states, connection_.atom(atom)) != states.end();
    };
    window.workspace = workspaceNumber(workspace);
    window.hidden = has(Atom::netWmStateHidden);
    window.inTaskList = role == Role::ordinary && !has(Atom::netWmStateSkipTaskbar);
    return window;
}

QString X11WindowRequest::takeTitle() {
    const auto netName = netName_.take();
    const auto name = name_.take();
    const QString title = netName ? textOf(connection_, *netName) : QString();
    return title.isEmpty() && name ? textOf(connection_, *name) : title;
}

// The server knows which local process opened the connection, and by which number we know it too;
// what a client in a sandbox writes is its number in there.
pid_t X11WindowRequest::takeClientPid() {
    const auto stated = processNumber(pid_.takeValue(XCB_ATOM_CARDINAL).value_or(0));
    if (clientIds_.sequence != 0) {
        xcb_generic_error_t* error = nullptr;
        const Reply<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(connection_.get(), clientIds_, &error));
        const Reply<xcb_generic_error_t> freed(error);
        if (reply && reply->num_ids > 0) {
            const auto ids = xcb_res_query_client_ids_ids_iterator(reply.get());
            if (xcb_res_client_id_value_value_length(ids.data) > 0)
                return processNumber(*xcb_res_client_id_value_value(ids.data));
        }
    }
    return stated;
}

QString X11WindowRequest::takeApplicationId(pid_t pid, const ApplicationCatalogue& catalogue) {
    const auto gtkApplicationId = gtkApplicationId_.take();
    const auto classHint = class_.take();
    WindowEvidence evidence;
    evidence.pid = pid;
    if (gtkApplicationId)
        evidence.statedId = textOf(connection_, *gtkApplicationId);
    if (classHint && classHint->format == 8) {
        const auto parts = classHint->bytes.split('\0');
        evidence.instance = QString::fromLatin1(parts.value(0));
        evidence.className = QString::fromLatin1(parts.value(1));
    }
    return applicationIdOf(evidence, catalogue);
}

} // namespace brimlow::platform
