#include "platform/ChooseSession.h"

#include "platform/Streams.h"
#include "platform/none/NoSession.h"
#include "platform/x11/X11Session.h"

#include <QSocketNotifier>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<Session> noSession(const QString& reason, const QString& remedy) {
    auto session = std::make_unique<NoSession>(reason, remedy);
    StandardStreams().write(Stream::error,
                            "Brimlow: " + session->abilities().complaint().toUtf8() + '\n');
    return session;
}

/// The session and the watch over its connection, which must not outlive it.
class WatchedX11Session final : public Session {
public:
    WatchedX11Session(std::unique_ptr<X11Session> session,
                      std::function<void(const QString&)> whenLost)
        : session_(std::move(session)), notifier_(session_->connectionFd(), QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                         [this, whenLost = std::move(whenLost)] {
                             if (!session_->connectionLost())
                                 return;
                             notifier_.setEnabled(false);
                             whenLost(u"the X server went away"_s);
                         });
    }

    Windows& windows() override { return session_->windows(); }
    Workspaces& workspaces() override { return session_->workspaces(); }
    Input& input() override { return session_->input(); }
    Startup& startup() override { return session_->startup(); }
    Abilities abilities() override { return session_->abilities(); }

private:
    std::unique_ptr<X11Session> session_;
    QSocketNotifier notifier_;
};

} // namespace

std::unique_ptr<Session> chooseSession(Applications& applications,
                                       std::function<void(const QString&)> whenLost) {
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return noSession(u"Wayland desktops are not supported yet"_s,
                         u"Choose an X11 (Xorg) session when you log in."_s);
    const QString fromDesktop = u"Start Brimlow from your desktop."_s;
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        return noSession(u"there is no X server: DISPLAY is not set"_s, fromDesktop);
    QString reason;
    auto session = X11Session::connect({}, applications, reason);
    if (!session)
        return noSession(reason, fromDesktop);
    return std::make_unique<WatchedX11Session>(std::move(session), std::move(whenLost));
}

} // namespace brimlow::platform
