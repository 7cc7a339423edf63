#include "platform/x11/X11Session.h"

#include "platform/x11/X11WindowManager.h"

#include <QStringList>

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

struct Need {
    Atom message;
    QStringView ability; // "the window manager cannot ..."
};

constexpr std::array windowNeeds = {
    Need{Atom::netClientList, u"list windows"},
    Need{Atom::netActiveWindow, u"bring windows to the front"},
    Need{Atom::netWmStateHidden, u"hide windows"},
    Need{Atom::netCloseWindow, u"close windows"},
};
constexpr std::array titleNeeds = {windowNeeds.front()};
constexpr std::array workspaceNeeds = {Need{Atom::netCurrentDesktop, u"switch workspaces"}};

const QString betterManager =
    u"Use a window manager that keeps to the Extended Window Manager Hints, such as Openbox or Xfwm4."_s;

Abilities without(const QString& reason, const QString& remedy) {
    const auto no = Outcome::failure(reason);
    return {.sessionName = u"X11"_s,
            .controlsWindows = no,
            .readsTitles = no,
            .switchesWorkspaces = no,
            .remedy = remedy};
}

} // namespace

std::unique_ptr<X11Session> X11Session::connect(const QByteArray& displayName,
                                                Applications& applications, QString& reason) {
    auto connection = X11Connection::open(displayName, reason);
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11Session>(new X11Session(std::move(connection), applications));
}

X11Session::X11Session(std::unique_ptr<X11Connection> connection, Applications& applications)
    : connection_(std::move(connection)), windows_(*connection_, applications),
      workspaces_(*connection_), input_(windows_), startup_(*connection_) {}

Abilities X11Session::abilities() {
    if (connection_->lost())
        return without(u"the connection to the X server is lost"_s, u"Log in again."_s);
    const auto manager = runningWindowManager(*connection_);
    if (!manager)
        return without(noWindowManager(*connection_).reason, betterManager);
    const auto judge = [&](std::span<const Need> needs) {
        QStringList inabilities;
        for (const Need& need : needs)
            if (!manager->understands(*connection_, need.message))
                inabilities += need.ability.toString();
        return inabilities.isEmpty() ? Outcome::success()
                                     : Outcome::failure(u"the window manager cannot "_s
                                                        + inabilities.join(u" or "_s));
    };
    Abilities abilities{.sessionName =
                            manager->name.isEmpty() ? u"X11"_s : u"X11 (%1)"_s.arg(manager->name),
                        .controlsWindows = judge(windowNeeds),
                        .readsTitles = judge(titleNeeds),
                        .switchesWorkspaces = judge(workspaceNeeds),
                        .remedy = {}};
    if (!abilities.controlsWindows || !abilities.readsTitles || !abilities.switchesWorkspaces)
        abilities.remedy = betterManager;
    return abilities;
}

int X11Session::connectionFd() const {
    return xcb_get_file_descriptor(connection_->get());
}

bool X11Session::connectionLost() {
    return connection_->lost();
}

} // namespace brimlow::platform
