#pragma once

#include "tools/desktop/ChildProcess.h"
#include "tools/desktop/DesktopState.h"
#include "tools/desktop/PrivateBus.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace brimlow::desktop {

enum class WindowManager { none, openbox, xfwm4, kwin };

/// A desktop of its own for one test or demonstration: an X server without a screen, a session bus,
/// a window manager with its own defaults and four workspaces, and empty home, configuration, data,
/// cache and run-time folders. Nothing of the user's is read or written, and everything that was
/// started is stopped with it.
class PrivateDesktop {
public:
    static constexpr int workspaceCount = 4;

    explicit PrivateDesktop(WindowManager windowManager) : windowManager_(windowManager) {}
    ~PrivateDesktop();

    /// True once the window manager answers; else error() says what is missing.
    bool start();
    const QString& error() const { return error_; }

    /// Gives the desktop a portal, whose dialogs are GTK's; without this there is none. False when
    /// it does not come up.
    bool startPortal();

    /// For programs that are to live on this desktop; Brimlow among them shows no window unasked.
    const QProcessEnvironment& environment() const { return environment_; }
    QByteArray displayName() const;
    QString home() const { return folder_.path(); }

    /// Starts an application and waits until its window is managed. 0 when none came; error() says
    /// more.
    std::uint32_t openWindow(const QString& program, const QStringList& arguments = {});

    /// Absent where there is no window manager.
    std::optional<DesktopState> state() const { return readDesktopState(environment_); }
    /// Asks for the state until `holds` does; false when it does not within `milliseconds`.
    bool waitFor(const std::function<bool(const DesktopState&)>& holds,
                 int milliseconds = 5000) const;
    /// Runs one of the tools on this desktop, such as wmctrl or xdotool.
    bool run(const QString& program, const QStringList& arguments) const;
    bool screenshot(const QString& pngFile) const;

    qint64 serverPid() const { return server_ ? server_->pid() : 0; }
    /// Stops the X server or the window manager under everybody's feet.
    void stopServer() { server_.reset(); }
    void stopWindowManager() { manager_.reset(); }

private:
    bool makeFolders();
    bool startServer();
    bool startBus();
    bool startWindowManager();
    bool fail(const QString& why);
    std::unique_ptr<ChildProcess> child(const QString& program, const QStringList& arguments);
    QString logFile() const { return folder_.filePath(QStringLiteral("log")); }
    QString logTail() const;

    WindowManager windowManager_;
    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    QString error_;
    // Stopped from the last to the first.
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<PrivateBus> bus_;
    std::unique_ptr<ChildProcess> manager_;
    std::vector<std::unique_ptr<ChildProcess>> applications_;
};

} // namespace brimlow::desktop
