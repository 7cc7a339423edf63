#include "tools/desktop/PrivateDesktop.h"

#include "tools/desktop/MockedLogind.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

constexpr int startLimit = 15000;   // ms; a loaded machine takes seconds for what takes 0.3 s alone
constexpr int pollInterval = 20;    // ms
constexpr int repeatInterval = 250; // ms

// What a program needs of the surroundings, and nothing that could lead it to the user's own
// desktop, bus or files.
QProcessEnvironment bareEnvironment() {
    const auto own = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment bare;
    for (const QString& name :
         {u"PATH"_s, u"USER"_s, u"LOGNAME"_s, u"TERM"_s, u"LD_LIBRARY_PATH"_s, u"ASAN_OPTIONS"_s,
          u"UBSAN_OPTIONS"_s, u"LSAN_OPTIONS"_s, u"TSAN_OPTIONS"_s}) {
        if (own.contains(name))
            bare.insert(name, own.value(name));
    }
    bare.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    bare.insert(u"SHELL"_s, u"/bin/sh"_s);
    bare.insert(u"XDG_SESSION_TYPE"_s, u"x11"_s);
    bare.insert(u"GDK_BACKEND"_s, u"x11"_s);
    bare.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    bare.insert(u"GSETTINGS_BACKEND"_s, u"memory"_s);
    bare.insert(u"GIO_USE_VFS"_s, u"local"_s);
    bare.insert(u"NO_AT_BRIDGE"_s, u"1"_s);
    return bare;
}

} // namespace

PrivateDesktop::~PrivateDesktop() {
    while (!applications_.empty())
        applications_.pop_back();
    manager_.reset();
    bus_.reset();
    server_.reset();
}

bool PrivateDesktop::start() {
    for (const QString& tool : {u"Xvfb"_s, u"dbus-daemon"_s, u"wmctrl"_s, u"xprop"_s}) {
        if (QStandardPaths::findExecutable(tool).isEmpty())
            return fail(u"%1 is not installed"_s.arg(tool));
    }
    return makeFolders() && startServer() && startBus() && startWindowManager();
}

bool PrivateDesktop::makeFolders() {
    if (!folder_.isValid())
        return fail(u"no scratch folder can be made: "_s + folder_.errorString());
    environment_ = bareEnvironment();
    environment_.insert(u"HOME"_s, folder_.path());
    // Nobody is there unless a test puts a MockedLogind into the folder.
    environment_.insert(u"BRIMLOW_AUTOSTART"_s, u"1"_s);
    environment_.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, MockedLogind(folder_.path()).address());
    for (const auto& [variable, name] :
         {std::pair(u"XDG_CONFIG_HOME"_s, u"config"_s), std::pair(u"XDG_DATA_HOME"_s, u"data"_s),
          std::pair(u"XDG_CACHE_HOME"_s, u"cache"_s), std::pair(u"XDG_STATE_HOME"_s, u"state"_s),
          std::pair(u"XDG_RUNTIME_DIR"_s, u"run"_s)}) {
        const QString path = folder_.filePath(name);
        if (!QDir().mkpath(path)
            || !QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
            return fail(u"%1 cannot be made"_s.arg(path));
        environment_.insert(variable, path);
    }
    return true;
}

bool PrivateDesktop::startServer() {
    server_ = child(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x800x24"_s,
                                u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    if (const QString why = server_->start(); !why.isEmpty())
        return fail(why);
    const QByteArray number = server_->readFirstLine(startLimit);
    if (number.isEmpty())
        return fail(u"Xvfb names no display"_s + logTail());
    environment_.insert(u"DISPLAY"_s, u':' + QString::fromLatin1(number));
    return true;
}

bool PrivateDesktop::startBus() {
    bus_ = std::make_unique<PrivateBus>(folder_.path());
    // xfwm4 keeps its settings there.
    if (const QString why = bus_->start(environment_, {u"org.xfce.Xfconf"_s}); !why.isEmpty())
        return fail(why + logTail());
    environment_.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus_->address());
    return true;
}

bool PrivateDesktop::startWindowManager() {
    switch (windowManager_) {
    case WindowManager::none:
        return true;
    case WindowManager::openbox:
        manager_ = child(u"openbox"_s, {u"--sm-disable"_s});
        break;
    case WindowManager::xfwm4:
        manager_ = child(u"xfwm4"_s, {u"--compositor=off"_s});
        break;
    case WindowManager::kwin:
        manager_ = child(u"env"_s, {u"KWIN_COMPOSE=N"_s, u"kwin_x11"_s});
        break;
    }
    manager_->writeOutputTo(logFile());
    if (const QString why = manager_->start(); !why.isEmpty())
        return fail(why);

    const QDeadlineTimer deadline(startLimit);
    while (!deadline.hasExpired() && manager_->process().state() == QProcess::Running) {
        const auto check =
            outputOf(u"xprop"_s, {u"-root"_s, u"_NET_SUPPORTING_WM_CHECK"_s}, environment_);
        // A request that comes while the manager still sets itself up may be lost, so it is
        // repeated.
        if (check && check->contains("# 0x")
            && run(u"wmctrl"_s, {u"-n"_s, QString::number(workspaceCount)})
            && waitFor([](const DesktopState& now) { return now.workspaces == workspaceCount; },
                       repeatInterval))
            return true;
        QThread::msleep(pollInterval);
    }
    return fail(u"the window manager does not answer"_s + logTail());
}

bool PrivateDesktop::startPortal() {
    // Else a dialog shows what was chosen before, where a typed path is not taken.
    const QString folder = environment_.value(u"XDG_CONFIG_HOME"_s) + u"/gtk-3.0"_s;
    QFile settings(folder + u"/settings.ini"_s);
    if (!QDir().mkpath(folder) || !settings.open(QIODevice::WriteOnly))
        return fail(u"%1 cannot be written"_s.arg(settings.fileName()));
    settings.write("[Settings]\ngtk-recent-files-enabled=false\n");
    settings.close();
    for (const auto& [program, name] :
         {std::pair(u"xdg-desktop-portal-gtk"_s, u"org.freedesktop.impl.portal.desktop.gtk"_s),
          std::pair(u"xdg-desktop-portal"_s, u"org.freedesktop.portal.Desktop"_s)}) {
        applications_.push_back(child(u"/usr/libexec/"_s + program, {}));
        applications_.back()->writeOutputTo(logFile());
        if (const QString why = applications_.back()->start(); !why.isEmpty())
            return fail(why);
        if (!outputOf(u"gdbus"_s, {u"wait"_s, u"--session"_s, name}, environment_, startLimit))
            return fail(u"%1 does not get onto the bus"_s.arg(program) + logTail());
    }
    return true;
}

QByteArray PrivateDesktop::displayName() const {
    return environment_.value(u"DISPLAY"_s).toLatin1();
}

std::uint32_t PrivateDesktop::openWindow(const QString& program, const QStringList& arguments) {
    const auto before = state();
    auto application = child(program, arguments);
    application->writeOutputTo(logFile());
    if (const QString why = application->start(); !before || !why.isEmpty()) {
        fail(before ? why : u"no window manager runs"_s);
        return 0;
    }
    applications_.push_back(std::move(application));
    std::uint32_t number = 0;
    const bool came = waitFor(
        [&](const DesktopState& now) {
            const auto fresh = std::ranges::find_if(now.windows, [&](const DesktopWindow& window) {
                return before->window(window.number) == nullptr;
            });
            number = fresh == now.windows.end() ? 0 : fresh->number;
            return number != 0;
        },
        startLimit);
    if (!came)
        fail(u"%1 opens no window"_s.arg(program) + logTail());
    return number;
}

bool PrivateDesktop::waitFor(const std::function<bool(const DesktopState&)>& holds,
                             int milliseconds) const {
    const QDeadlineTimer deadline(milliseconds);
    while (true) {
        const auto now = state();
        if (now && holds(*now))
            return true;
        if (deadline.hasExpired())
            return false;
        QThread::msleep(pollInterval);
    }
}

bool PrivateDesktop::run(const QString& program, const QStringList& arguments) const {
    return outputOf(program, arguments, environment_).has_value();
}

bool PrivateDesktop::screenshot(const QString& pngFile) const {
    return run(u"maim"_s, {pngFile});
}

bool PrivateDesktop::fail(const QString& why) {
    error_ = why;
    return false;
}

std::unique_ptr<ChildProcess> PrivateDesktop::child(const QString& program,
                                                    const QStringList& arguments) {
    auto process = std::make_unique<ChildProcess>(program, arguments, environment_);
    process->writeErrorsTo(logFile());
    return process;
}

QString PrivateDesktop::logTail() const {
    QFile log(logFile());
    if (!log.open(QIODevice::ReadOnly))
        return {};
    const QByteArray tail = log.readAll().right(500).trimmed();
    return tail.isEmpty() ? QString() : u"; it says: "_s + QString::fromLocal8Bit(tail);
}

} // namespace brimlow::desktop
