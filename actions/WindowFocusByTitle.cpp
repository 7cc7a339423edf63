// Bringing a window forward by its title: among the titles of the window list, else by way of
// System Events.

#include "actions/ActionExecutor.h"
#include "actions/WindowElements.h"
#include "actions/WindowOwnership.h"
#include "platform/NSAppleScript.h"
#include "platform/Streams.h"

#include <QStringList>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

/// A window of the application that has a title.
struct CandidateWindow {
    QString title;
    pid_t ownerPid = 0;
};

enum class Pass { exact, substring };

void log(const QString& text) {
    printErrorLine(u"ActionExecutor.focus: "_s + text);
}

// Titles are typed and remembered with other dashes and blanks than they are shown with.
QString normalize(const QString& text) {
    QString result = text.toLower();
    for (const char16_t dash : {u'\u2014', u'\u2013', u'\u2012', u'\u2212', u'\u2011', u'\uFF0D'})
        result.replace(QChar(dash), u'-');
    for (const char16_t blank : {u'\u00A0', u'\u2009'})
        result.replace(QChar(blank), u' ');
    return result.split(u' ', Qt::SkipEmptyParts).join(u' ');
}

std::vector<CandidateWindow> candidatesOf(const QString& bundleId,
                                          const NSRunningApplication& firstInstance) {
    std::vector<CandidateWindow> candidates;
    const auto windows =
        CGWindowListCopyWindowInfo(kCGWindowListExcludeDesktopElements, kCGNullWindowID);
    for (const auto& window : windows.value_or(std::vector<CGWindowInfo>())) {
        if (!window.kCGWindowOwnerPID || !belongsTo(window, bundleId, firstInstance))
            continue;
        const QString title = window.kCGWindowName.value_or(QString());
        if (!title.isEmpty())
            candidates.push_back({title, *window.kCGWindowOwnerPID});
    }
    return candidates;
}

bool hasTitle(const AXUIElement& element, const QString& title) {
    AXValue value;
    AXUIElementCopyAttributeValue(element, u"AXTitle"_s, value);
    const auto* text = std::get_if<QString>(&value);
    return text && *text == title;
}

/// Whether a window of that title was found among its process' elements and raised.
bool raise(const CandidateWindow& candidate) {
    AXError error = kAXErrorSuccess;
    const auto elements = windowElementsOf(candidate.ownerPid, error);
    if (!elements) {
        log(u"Match found ('"_s + candidate.title + u"' pid "_s
            + QString::number(candidate.ownerPid) + u") but AX on that pid failed ("_s
            + QString::number(error) + u')');
        return false;
    }
    const auto element = std::ranges::find_if(
        *elements, [&](const AXUIElement& each) { return hasTitle(each, candidate.title); });
    if (element == elements->end())
        return false;
    raiseWindow(*element);
    return true;
}

/// The result text, or nothing when no candidate could be focused.
std::optional<QString> focusCandidate(const std::vector<CandidateWindow>& candidates,
                                      const QString& title,
                                      const NSRunningApplication& application) {
    const QString target = normalize(title);
    for (const Pass pass : {Pass::exact, Pass::substring}) {
        for (const auto& candidate : candidates) {
            const QString its = normalize(candidate.title);
            const bool accepted = pass == Pass::exact ? its == target : its.contains(target);
            if (!accepted || !raise(candidate))
                continue;
            application.activateWithOptions();
            log(u"CG+AX: focused '"_s + candidate.title + u"' (pid "_s
                + QString::number(candidate.ownerPid) + u", "_s
                + (pass == Pass::exact ? u"exact"_s : u"substring"_s) + u')');
            return u"Focused: "_s + candidate.title;
        }
    }
    log(u"CG+AX (current Space): no candidate matched. Visible window titles:"_s);
    for (const auto& candidate : candidates)
        log(u"  | [pid "_s + QString::number(candidate.ownerPid) + u"] "_s + candidate.title);
    return std::nullopt;
}

void dumpWindows(const QString& name) {
    const auto script =
        NSAppleScript::initWithSource(dumpWindowsSource.arg(escapedForAppleScript(name)));
    if (!script)
        return;
    NSAppleScriptError error;
    const QString dump = script->executeAndReturnError(error).value_or(QString());
    if (!dump.isEmpty())
        log(u"All visible "_s + name + u" windows:\n"_s + dump);
    else if (error.isEmpty())
        log(u"(no "_s + name + u" windows visible to AppleScript at all)"_s);
    else
        log(u"(dump failed: "_s + error.message().value_or(u"unknown"_s) + u')');
}

/// The result text, or nothing when System Events could not be asked.
std::optional<QString> focusByScript(const QString& name, const QString& title,
                                     const NSRunningApplication& application) {
    const auto script = NSAppleScript::initWithSource(
        focusWindowSource.arg(escapedForAppleScript(name), escapedForAppleScript(title)));
    if (!script)
        return std::nullopt;
    NSAppleScriptError error;
    const auto answer = script->executeAndReturnError(error);
    if (!answer) {
        log(u"AppleScript path failed: "_s + error.message().value_or(u"unknown"_s)
            + u" — falling back to AX direct."_s);
        return std::nullopt;
    }
    // Only the first bar separates: a title may have more of them.
    const QString matchType = answer->section(u'|', 0, 0);
    const QString window = answer->section(u'|', 1);
    if (matchType != "no_match"_L1) {
        application.activateWithOptions();
        log(u"AppleScript: focused '"_s + window + u"' (match type: "_s + matchType + u')');
        return u"Focused ("_s + matchType + u"): "_s + window;
    }
    log(u"AppleScript: no window matched '"_s + title + u"' — dumping ALL "_s + name
        + u" windows AppleScript can see…"_s);
    dumpWindows(name);
    return u"No "_s + name + u" window matching '"_s + title + u"' — see log for actual titles"_s;
}

} // namespace

QString ActionExecutor::executeFocusWindow(const QString& bundleId, const QString& titleSubstring) {
    log(u"called with bundleId='"_s + bundleId + u"' titleSubstring='"_s + titleSubstring + u'\'');
    const auto application = firstInstanceOf(bundleId);
    if (!application)
        return u"App not running: "_s + bundleId;
    const auto name = application->localizedName();
    log(u"found running app: "_s + name.value_or(u"?"_s) + u" PID="_s
        + QString::number(application->processIdentifier()));

    const auto candidates = candidatesOf(bundleId, *application);
    log(u"CGWindowList: found "_s + QString::number(candidates.size()) + u" titled "_s
        + name.value_or(bundleId) + u" window(s) across all Spaces"_s);
    if (const auto focused = focusCandidate(candidates, titleSubstring, *application))
        return *focused;
    if (name)
        if (const auto result = focusByScript(*name, titleSubstring, *application))
            return *result;
    return u"No window matching '"_s + titleSubstring
           + u"' via either AX or AppleScript. Window may be on another Space — see log for "
             "windows that ARE visible."_s;
}

} // namespace brimlow
