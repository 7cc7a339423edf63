#pragma once

#include "tools/desktop/ChildProcess.h"

#include <memory>

namespace brimlow::desktop {

/// A system bus of its own with a mocked logind, for processes that find the bus at address().
/// Values are in the text form of `gdbus call`, such as <true>.
class MockedLogind {
public:
    /// The bus' socket and what both say go into `folder`.
    explicit MockedLogind(const QString& folder) : folder_(folder) {}

    /// For DBUS_SYSTEM_BUS_ADDRESS.
    QString address() const { return QStringLiteral("unix:path=%1/system-bus").arg(folder_); }

    bool startBus();
    void stopBus() { bus_.reset(); }
    /// A logind without any session, which answers on the bus.
    bool startLogind();
    void stopLogind() { logind_.reset(); }

    /// An active session on seat0 of the user who runs this.
    bool addSession(const QString& id);
    /// Also tells those who listen.
    bool setProperty(const QString& session, const QString& name, const QString& value);
    /// Which session the user's display is said to be.
    bool setDisplay(const QString& display);
    /// Gives a method of the manager, from an unsigned integer to an object path, an answer in
    /// Python, such as "ret = '/' + str(args[0])".
    bool answer(const QString& method, const QString& code);
    bool call(const QString& path, const QString& method, const QStringList& arguments);

    static QString pathOf(const QString& session);
    /// What it was asked and what it told, a line each.
    QByteArray log() const;

private:
    std::unique_ptr<ChildProcess> child(const QString& program, const QStringList& arguments);
    QString logFile() const { return folder_ + QStringLiteral("/logind.log"); }

    QString folder_;
    std::unique_ptr<ChildProcess> bus_;
    std::unique_ptr<ChildProcess> logind_;
};

} // namespace brimlow::desktop
