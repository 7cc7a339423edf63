#include "platform/linux/applications/EntryLaunch.h"

#include "platform/linux/applications/LaunchContext.h"

#include <QDir>
#include <QFile>

#include <gio/gdesktopappinfo.h>
#include <unistd.h>

#include <csignal>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

/// The bus that GIO will use. By default a connection ends the process when the bus goes away, so
/// it has to be told otherwise before GIO gets hold of it. Null without a bus.
ObjectPointer<GDBusConnection> harmlessSessionBus() {
    ObjectPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (bus)
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return bus;
}

// Runs in the child between fork and exec: only calls that are safe in a signal handler.
void prepareChild(void* workingFolder) {
    setsid();
    struct sigaction byDefault {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(SIGPIPE, &byDefault, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (workingFolder && chdir(static_cast<const char*>(workingFolder)) != 0 && chdir("/") != 0)
        _exit(127);
}

// Null for what the bus starts without a token: GLib 2.74 would give back a token that it never
// got, and complain about itself on standard error.
ObjectPointer<GAppLaunchContext> contextFor(const DesktopEntry& entry, GDesktopAppInfo* info,
                                            bool hasBus, Startup& startup) {
    const auto says = [&](const char* key) { return g_desktop_app_info_get_boolean(info, key); };
    if (hasBus && says(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE)
        && !says(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY))
        return nullptr;
    auto context = newLaunchContext(entry, startup);
    // What we were started with is not for others.
    for (const char* variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"})
        g_app_launch_context_unsetenv(context.get(), variable);
    return context;
}

QString clause(const GError& error) {
    QString text = QString::fromUtf8(error.message);
    while (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

} // namespace

Outcome launchEntry(const DesktopEntry& entry, Startup& startup) {
    const ObjectPointer<GDesktopAppInfo> info(
        g_desktop_app_info_new_from_filename(QFile::encodeName(entry.file).constData()));
    if (!info)
        return Outcome::failure(u"its desktop entry or its program has gone"_s);
    const auto bus = harmlessSessionBus();
    const auto context = contextFor(entry, info.get(), bus != nullptr, startup);
    const TextPointer folder(
        g_desktop_app_info_get_string(info.get(), G_KEY_FILE_DESKTOP_KEY_PATH));
    const bool hasFolder = folder && *folder;
    QByteArray home = QFile::encodeName(QDir::homePath());
    const auto flags =
        GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    GError* error = nullptr;
    const bool started = g_desktop_app_info_launch_uris_as_manager_with_fds(
        info.get(), nullptr, context.get(), flags, prepareChild, hasFolder ? nullptr : home.data(),
        nullptr, nullptr, -1, -1, -1, &error);
    const ErrorPointer failure(error);
    return started ? Outcome::success() : Outcome::failure(clause(*failure));
}

} // namespace brimlow::platform
