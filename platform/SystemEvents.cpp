#include "platform/SystemEvents.h"

#include "platform/NSRunningApplication.h"
#include "platform/OwnedWindows.h"
#include "platform/Platform.h"
#include "platform/SystemSettings.h"

#include <algorithm>
#include <functional>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int leftArrow = 123;
constexpr int rightArrow = 124;

// As Apple events number them.
constexpr int eventNotHandled = -10000;
constexpr int noSuchObject = -1728;
constexpr int notPermitted = -1743;

SystemEventsAnswer failure(int number, const QString& why) {
    return {{}, number, why};
}

/// The windows of all processes of that name, front to back; absent, and `answer` filled, when
/// there is none.
std::optional<std::vector<Window>> windowsOf(const QString& process, SystemEventsAnswer& answer) {
    std::vector<QString> identifiers;
    for (const auto& application : NSRunningApplication::all())
        if (application.localizedName() == process)
            identifiers.push_back(application.bundleIdentifier());
    const auto all = ownedWindows();
    if (!all) {
        answer = failure(eventNotHandled, u"the windows cannot be listed"_s);
        return std::nullopt;
    }
    if (identifiers.empty()) {
        answer = failure(noSuchObject, u"Can’t get process \"%1\""_s.arg(process));
        return std::nullopt;
    }
    std::vector<Window> windows;
    for (auto each = all->rbegin(); each != all->rend(); ++each)
        if (std::ranges::find(identifiers, each->owner) != identifiers.end())
            windows.push_back(each->window);
    return windows;
}

// A hidden window would stay hidden, however high it is raised.
Outcome bringUp(const Window& window) {
    auto& windows = Platform::current().session.windows();
    return window.hidden ? windows.activate(window.number) : windows.raise(window.number);
}

struct Answerer {
    SystemEventsAnswer operator()(const PressKeyWithControl& script) const {
        auto& workspaces = Platform::current().session.workspaces();
        Outcome outcome = Outcome::failure(u"the key has no meaning in this session"_s);
        if (script.keyCode == leftArrow)
            outcome = workspaces.step(Direction::left);
        else if (script.keyCode == rightArrow)
            outcome = workspaces.step(Direction::right);
        return outcome ? SystemEventsAnswer() : failure(eventNotHandled, outcome.reason);
    }

    SystemEventsAnswer operator()(const FocusWindowByName& script) const {
        SystemEventsAnswer answer;
        const auto windows = windowsOf(script.process, answer);
        if (!windows)
            return answer;
        const QString lower = script.name.toLower();
        struct Pass {
            QString how;
            std::function<bool(const QString&)> accepts;
        };
        for (const Pass& pass :
             {Pass{u"exact"_s, [&](const QString& name) { return name == script.name; }},
              Pass{u"exact-ci"_s, [&](const QString& name) { return name.toLower() == lower; }},
              Pass{u"substring"_s,
                   [&](const QString& name) { return name.toLower().contains(lower); }}}) {
            const auto found = std::ranges::find_if(*windows, pass.accepts, &Window::title);
            if (found == windows->end())
                continue;
            if (const auto raised = bringUp(*found); !raised)
                return failure(eventNotHandled, raised.reason);
            return {.text = pass.how + u'|' + found->title};
        }
        return {.text = u"no_match|"_s};
    }

    SystemEventsAnswer operator()(const DumpWindows& script) const {
        SystemEventsAnswer answer;
        const auto windows = windowsOf(script.process, answer);
        if (!windows)
            return answer;
        for (const Window& window : *windows)
            answer.text += u"  | "_s + window.title + u'\n';
        return answer;
    }

    SystemEventsAnswer operator()(const CountFinderWindows&) const {
        auto& platform = Platform::current();
        const auto abilities = platform.session.abilities();
        for (const Outcome& ability : {abilities.switchesWorkspaces, abilities.controlsWindows}) {
            if (ability)
                continue;
            platform.systemSettings.prompt(SettingsPane::automation);
            return failure(notPermitted, ability.reason);
        }
        SystemEventsAnswer answer;
        const auto windows = windowsOf(u"Finder"_s, answer);
        // It always runs, and hardly any file manager goes by that name here.
        if (windows || answer.errorNumber == noSuchObject)
            return {.text = QString::number(windows ? windows->size() : 0)};
        return answer;
    }
};

} // namespace

SystemEventsAnswer runInSystemEvents(const SystemEventsScript& script) {
    return std::visit(Answerer(), script);
}

} // namespace brimlow::platform
