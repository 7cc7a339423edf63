#include "actions/ActionExecutor.h"
#include "platform/NSWorkspace.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

QString ActionExecutor::executeOpenApp(const QString& name) {
    // Installed applications are not catalogued yet: none is known, by identifier or by name.
    return u"Could not find application: "_s + name;
}

QString ActionExecutor::executeFocusApp(const QString& bundleId) {
    printErrorLine(u"ActionExecutor.focus-app: called with bundleId='"_s + bundleId + u'\'');
    for (const auto& application : NSWorkspace::runningApplications()) {
        if (application.bundleIdentifier() != bundleId)
            continue;
        application.activate();
        return u"Focused "_s + bundleId;
    }
    return u"App not running and not installed: "_s + bundleId;
}

} // namespace brimlow
