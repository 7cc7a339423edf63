#include "tools/demo/DemoSteps.h"

#include "tools/recording/DemoRecording.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

namespace demo = platform::demo;

TapPositionMapping bindingFor(const demo::Touch& touch, TapAction action) {
    return bindingAt(QString::fromUtf8(touch.name), touch.point.x, touch.point.y, action);
}

bool wentRight(const DesktopState& before, const DesktopState& after) {
    return after.currentWorkspace == before.currentWorkspace + 1;
}

bool wentLeft(const DesktopState& before, const DesktopState& after) {
    return after.currentWorkspace == before.currentWorkspace - 1;
}

bool closedActiveWindow(const DesktopState& before, const DesktopState& after) {
    return before.window(before.activeWindow) && !after.window(before.activeWindow)
           && after.windows.size() == before.windows.size() - 1;
}

bool hidEverything(const DesktopState& before, const DesktopState& after) {
    return before.hiddenWindows() == 0 && !after.windows.empty()
           && std::ranges::all_of(after.windows, &DesktopWindow::hidden);
}

bool nothingChanged(const DesktopState& before, const DesktopState& after) {
    return after.currentWorkspace == before.currentWorkspace
           && after.activeWindow == before.activeWindow
           && after.windows.size() == before.windows.size()
           && after.hiddenWindows() == before.hiddenWindows();
}

DemoStep step(const demo::Touch& touch, const QString& expectation,
              decltype(DemoStep::happened) happened) {
    const QString name = QString::fromUtf8(touch.name);
    return {name, expectation, touch.at, u"matched '%1' → "_s.arg(name), std::move(happened)};
}

} // namespace

std::vector<TapPositionMapping> demoBindings() {
    std::vector<TapPositionMapping> bindings{
        bindingFor(demo::rightEdge, TapAction::switchDesktopRight),
        bindingFor(demo::leftEdge, TapAction::switchDesktopLeft),
        bindingFor(demo::palm, TapAction::hideAll), // the palm must not reach it
        bindingFor(demo::topRight, TapAction::closeWindow),
        bindingFor(demo::bottomClick, TapAction::switchDesktopRight),
        bindingFor(demo::topLeft, TapAction::hideAll),
    };
    const QString click = QString::fromUtf8(demo::bottomClick.name);
    std::ranges::find(bindings, click, &TapPositionMapping::name)->requireClick = true;
    return bindings;
}

std::vector<DemoStep> demoSteps() {
    DemoStep palm = step(demo::palm, u"nothing: a palm"_s, nothingChanged);
    palm.logLine = u"REJECT (palm)"_s;
    return {
        step(demo::rightEdge, u"one workspace right"_s, wentRight),
        step(demo::leftEdge, u"one workspace left"_s, wentLeft),
        palm,
        step(demo::topRight, u"closes the window"_s, closedActiveWindow),
        step(demo::bottomClick, u"one workspace right"_s, wentRight),
        step(demo::topLeft, u"hides everything"_s, hidEverything),
    };
}

} // namespace brimlow::desktop
