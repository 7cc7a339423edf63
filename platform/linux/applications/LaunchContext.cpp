#include "platform/linux/applications/LaunchContext.h"

using namespace brimlow::platform;

struct BrimlowLaunchContext {
    GAppLaunchContext parent;
    const DesktopEntry* application;
    Startup* startup;
};

struct BrimlowLaunchContextClass {
    GAppLaunchContextClass parent;
};

G_DEFINE_TYPE(BrimlowLaunchContext, brimlow_launch_context, G_TYPE_APP_LAUNCH_CONTEXT)

namespace {

BrimlowLaunchContext* ownOf(GAppLaunchContext* context) {
    return reinterpret_cast<BrimlowLaunchContext*>(context);
}

char* beginStartup(GAppLaunchContext* context, GAppInfo*, GList*) {
    const auto* own = ownOf(context);
    const QByteArray token = own->startup->begin(*own->application).toUtf8();
    return token.isEmpty() ? nullptr : g_strdup(token.constData());
}

void abandonStartup(GAppLaunchContext* context, const char* token) {
    ownOf(context)->startup->abandon(QString::fromUtf8(token));
}

} // namespace

static void brimlow_launch_context_class_init(BrimlowLaunchContextClass* itself) {
    itself->parent.get_startup_notify_id = beginStartup;
    itself->parent.launch_failed = abandonStartup;
}

static void brimlow_launch_context_init(BrimlowLaunchContext*) {}

namespace brimlow::platform {

ObjectPointer<GAppLaunchContext> newLaunchContext(const DesktopEntry& application,
                                                  Startup& startup) {
    ObjectPointer<GAppLaunchContext> context(
        G_APP_LAUNCH_CONTEXT(g_object_new(brimlow_launch_context_get_type(), nullptr)));
    ownOf(context.get())->application = &application;
    ownOf(context.get())->startup = &startup;
    return context;
}

} // namespace brimlow::platform
