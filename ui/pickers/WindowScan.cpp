#include "ui/pickers/WindowScan.h"

#include "actions/WindowOwnership.h"
#include "platform/Accessibility.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

// What calls itself by more is not worth a page of message.
constexpr qsizetype longestName = 200;

WindowScan failure(const QString& message) {
    return {.windows = {}, .refreshError = message};
}

} // namespace

QString whyNoneIsPickable(const QString& name, qsizetype owned, bool canReadTitles) {
    if (owned == 0)
        return name
               + u" is running but has 0 visible windows. Make sure a window is actually open "
                 "(not just the dock icon)."_s;
    const QString found = u"Found "_s + QString::number(owned) + u' ' + name;
    if (canReadTitles)
        return found
               + u" window(s) but titles came back empty. Screen Recording IS granted but didn't "
                 "apply — try fully quitting Brimlow (Cmd+Q from the menu bar Quit) and "
                 "relaunching."_s;
    return found
           + u" window(s) but can't read their titles. Screen Recording permission needed.\n\n"
             "1) Click the button below\n"
             "2) Toggle Brimlow ON\n"
             "3) **QUIT BRIMLOW COMPLETELY** (Cmd+Q from menu bar — not just close window)\n"
             "4) Relaunch Brimlow"_s;
}

WindowScan scanWindows(const std::optional<QString>& bundleId) {
    if (!bundleId || bundleId->isEmpty())
        return failure(u"Pick an app first."_s);
    const auto firstInstance = firstInstanceOf(*bundleId);
    if (!firstInstance)
        return failure(u"App is not running. Launch it first, then click Refresh."_s);
    const bool canReadTitles = CGPreflightScreenCaptureAccess();
    if (!canReadTitles)
        CGRequestScreenCaptureAccess();
    const auto all =
        CGWindowListCopyWindowInfo(kCGWindowListExcludeDesktopElements, kCGNullWindowID);
    if (!all)
        return failure(u"Couldn't enumerate windows."_s);

    WindowScan scan;
    qsizetype owned = 0;
    for (const CGWindowInfo& window : *all) {
        if (!belongsTo(window, *bundleId, firstInstance))
            continue;
        ++owned;
        if (const QString title = window.kCGWindowName.value_or(QString()); !title.isEmpty())
            scan.windows.push_back({window.kCGWindowNumber, title});
    }
    if (scan.windows.empty())
        scan.refreshError =
            whyNoneIsPickable(firstInstance->localizedName().value_or(*bundleId).left(longestName),
                              owned, canReadTitles);
    return scan;
}

} // namespace brimlow
