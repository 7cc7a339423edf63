#include "platform/x11/X11Session.h"

#include "platform/x11/X11WindowManager.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

struct Need {
    Atom message;
    QStringView ability; // "The window manager cannot ..."
};

constexpr std::array windowNeeds = {
    Need{Atom::netClientList, u"list windows"},
    Need{Atom::netActiveWindow, u"bring windows to the front"},
    Need{Atom::netWmStateHidden, u"hide windows"},
    Need{Atom::netCloseWindow, u"close windows"},
};
constexpr Need workspaceNeed = {Atom::netCurrentDesktop, u"switch workspaces"};

QString sentence(const QStringList& inabilities) {
    return inabilities.isEmpty()
               ? QString()
               : u"The window manager cannot "_s + inabilities.join(u" or "_s) + u'.';
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
    Abilities abilities;
    abilities.sessionName = u"X11"_s;
    if (connection_->lost()) {
        abilities.missing = u"The connection to the X server is lost."_s;
        return abilities;
    }
    const auto manager = runningWindowManager(*connection_);
    if (!manager) {
        abilities.missing =
            u"No window manager is running, so windows can be neither listed nor controlled."_s;
        return abilities;
    }
    if (!manager->name.isEmpty())
        abilities.sessionName = u"X11 (%1)"_s.arg(manager->name);

    QStringList inabilities;
    for (const Need& need : windowNeeds)
        if (!manager->understands(*connection_, need.message))
            inabilities += need.ability.toString();
    abilities.controlsWindows = inabilities.isEmpty();
    abilities.readsTitles = manager->understands(*connection_, Atom::netClientList);
    abilities.switchesWorkspaces = manager->understands(*connection_, workspaceNeed.message);
    if (!abilities.switchesWorkspaces)
        inabilities += workspaceNeed.ability.toString();
    abilities.missing = sentence(inabilities);
    return abilities;
}

int X11Session::connectionFd() const {
    return xcb_get_file_descriptor(connection_->get());
}

bool X11Session::connectionLost() {
    return connection_->lost();
}

} // namespace brimlow::platform
