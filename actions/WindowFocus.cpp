// Bringing one window forward: first its application, then the window by its number, else by the
// title it has now, else by the title that the binding remembers.

#include "actions/AXGetWindow.h"
#include "actions/ActionExecutor.h"
#include "actions/WindowElements.h"
#include "actions/WindowOwnership.h"
#include "platform/MainQueue.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"
#include "platform/Streams.h"
#include "profiles/BlankTrimming.h"

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

// The desktop needs that long to show a workspace where the application has windows.
constexpr double workspaceSwitchDelay = 0.35; // seconds

void log(const QString& text) {
    printErrorLine(u"ActionExecutor.focus-id: "_s + text);
}

void bringForward(const NSRunningApplication& application) {
    const auto url =
        NSWorkspace::URLForApplicationWithBundleIdentifier(application.bundleIdentifier());
    if (url)
        NSWorkspace::openApplicationAtURL(*url);
    else
        application.activateWithOptions();
}

/// The element of process `owner` that has that number; absent, and the reason logged, when there
/// is none.
std::optional<AXUIElement> elementNumbered(std::uint32_t windowID, pid_t owner,
                                           AXUIElementGetWindowFunction getWindow) {
    AXError error = kAXErrorSuccess;
    const auto elements = windowElementsOf(owner, error);
    if (!elements) {
        log(u"AX windows query failed for owner pid "_s + QString::number(owner));
        return std::nullopt;
    }
    const auto found = std::ranges::find_if(*elements, [&](const AXUIElement& element) {
        std::uint32_t number = 0;
        return getWindow(&element, &number) == kAXErrorSuccess && number == windowID;
    });
    if (found != elements->end())
        return *found;
    log(u"id "_s + QString::number(windowID) + u" is in CGWindowList but no AX window of pid "_s
        + QString::number(owner) + u" reported that id"_s);
    return std::nullopt;
}

} // namespace

QString ActionExecutor::focusWindow(const QString& bundleId, const QString& windowTitle,
                                    std::optional<std::uint32_t> targetWindowID) {
    const auto application = firstInstanceOf(bundleId);
    if (!application)
        return executeFocusApp(bundleId);
    const QString activated = u"Activated "_s + application->localizedName().value_or(bundleId);
    const bool wasActive = application->isActive();
    bringForward(*application);

    const QString title = trimmedBlanks(windowTitle).toString();
    if (!targetWindowID && title.isEmpty())
        return activated;
    Platform::current().mainQueue.after(
        wasActive ? 0 : workspaceSwitchDelay, lifetime_.guard([=, this] {
            if (targetWindowID && executeFocusByWindowID(*targetWindowID, bundleId))
                return;
            if (!title.isEmpty())
                executeFocusWindow(bundleId, title);
        }));
    return activated + u" → focusing target"_s + (wasActive ? u""_s : u" (after Space switch)"_s);
}

std::optional<QString> ActionExecutor::executeFocusByWindowID(std::uint32_t windowID,
                                                              const QString& bundleId) {
    const QString id = QString::number(windowID);
    const auto windows =
        CGWindowListCopyWindowInfo(kCGWindowListExcludeDesktopElements, kCGNullWindowID);
    if (!windows) {
        log(u"CGWindowListCopyWindowInfo returned nil"_s);
        return std::nullopt;
    }
    // Numbers are used again: another application's window of that number is not the one meant.
    const auto firstInstance = firstInstanceOf(bundleId);
    const auto window = std::ranges::find_if(*windows, [&](const CGWindowInfo& each) {
        return each.kCGWindowNumber == windowID && belongsTo(each, bundleId, firstInstance);
    });
    if (window == windows->end()) {
        log(u"window id "_s + id + u" not present — app likely restarted, saved ID is stale"_s);
        return std::nullopt;
    }

    const auto owner = window->kCGWindowOwnerPID;
    const auto getWindow = axGetWindow();
    const auto element =
        getWindow && owner ? elementNumbered(windowID, *owner, getWindow) : std::nullopt;
    if (element) {
        raiseWindow(*element);
        if (firstInstance)
            firstInstance->activateWithOptions();
        log(u"focused id "_s + id + u" via _AXUIElementGetWindow (owner pid "_s
            + QString::number(*owner) + u')');
        return u"Focused window "_s + id;
    }
    if (const QString title = window->kCGWindowName.value_or(QString()); !title.isEmpty()) {
        log(u"falling back to title-substring focus on live title '"_s + title + u'\'');
        return executeFocusWindow(bundleId, title);
    }
    log(u"id "_s + id
        + u" present but no readable title (Screen Recording permission?) — giving up"_s);
    return std::nullopt;
}

} // namespace brimlow
