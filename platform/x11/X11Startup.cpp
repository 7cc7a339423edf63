#include "platform/x11/X11Startup.h"

#include "platform/DesktopEntry.h"

// The library asks its users to say that they know its interface may change.
#define SN_API_NOT_YET_FROZEN
#include <libsn/sn.h>

// The name that the library has it under; its header declares it under one that does not exist.
extern "C" void sn_launcher_set_application_id(SnLauncherContext* context, const char* desktopFile);

namespace brimlow::platform {

namespace {

struct ReleaseLauncher {
    void operator()(SnLauncherContext* context) const { sn_launcher_context_unref(context); }
};
struct ReleaseLaunchee {
    void operator()(SnLauncheeContext* context) const { sn_launchee_context_unref(context); }
};

} // namespace

void X11Startup::Release::operator()(SnDisplay* display) const {
    sn_display_unref(display);
}

// No traps for errors: on this connection they are thrown away unread.
X11Startup::X11Startup(X11Connection& connection)
    : connection_(connection),
      display_(connection.lost() ? nullptr
                                 : sn_xcb_display_new(connection.get(), nullptr, nullptr)) {}

QString X11Startup::begin(const DesktopEntry& application) {
    if (!display_ || connection_.lost())
        return {};
    const std::unique_ptr<SnLauncherContext, ReleaseLauncher> context(
        sn_launcher_context_new(display_.get(), connection_.screen()));
    const QByteArray name = application.name.toUtf8();
    const QByteArray binary = application.executable.toUtf8();
    sn_launcher_context_set_name(context.get(), name.constData());
    if (!application.icon.isEmpty())
        sn_launcher_context_set_icon_name(context.get(), application.icon.toUtf8().constData());
    if (!binary.isEmpty())
        sn_launcher_context_set_binary_name(context.get(), binary.constData());
    if (!application.startupWmClass.isEmpty())
        sn_launcher_context_set_wmclass(context.get(),
                                        application.startupWmClass.toUtf8().constData());
    if (!application.file.isEmpty())
        sn_launcher_set_application_id(context.get(), application.file.toUtf8().constData());
    sn_launcher_context_initiate(context.get(), "brimlow",
                                 binary.isEmpty() ? "program" : binary.constData(),
                                 connection_.serverTime());
    return connection_.lost()
               ? QString()
               : QString::fromUtf8(sn_launcher_context_get_startup_id(context.get()));
}

void X11Startup::abandon(const QString& token) {
    if (token.isEmpty() || !display_ || connection_.lost())
        return;
    // What tells the end is the same message, whoever sends it; and this way takes only the token.
    const std::unique_ptr<SnLauncheeContext, ReleaseLaunchee> context(
        sn_launchee_context_new(display_.get(), connection_.screen(), token.toUtf8().constData()));
    sn_launchee_context_complete(context.get());
}

} // namespace brimlow::platform
