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

bool openedCalculator(const DesktopState& before, const DesktopState& after) {
    const auto* active = after.window(after.activeWindow);
    return active && active->className == "galculator.Galculator"_L1
           && before.window(active->number) == nullptr;
}

auto brought(std::uint32_t window, int workspace) {
    return [=](const DesktopState& before, const DesktopState& after) {
        return before.activeWindow != window && after.activeWindow == window
               && after.currentWorkspace == workspace
               && after.window(window)->workspace == workspace;
    };
}

/// `logLine`: part of the line that ends the step; by default the one that tells what matched.
DemoStep step(const demo::Touch& touch, const QString& expectation,
              decltype(DemoStep::happened) happened, const QString& logLine = {}) {
    const QString name = QString::fromUtf8(touch.name);
    return {name, expectation, touch.at,
            logLine.isEmpty() ? u"matched '%1' → "_s.arg(name) : logLine, std::move(happened)};
}

TapPositionMapping focusBinding(const demo::Touch& touch, const QString& application,
                                const QString& title = {}, std::uint32_t number = 0) {
    auto binding = bindingFor(touch, TapAction::focusWindow);
    binding.appName = application;
    if (!title.isEmpty())
        binding.windowTitle = title;
    if (number != 0)
        binding.targetWindowID = number;
    return binding;
}

} // namespace

std::vector<TapPositionMapping> demoBindings(const DemoWindows& windows) {
    const QString terminal = u"debian-xterm"_s;
    auto open = bindingFor(demo::topEdge, TapAction::openApp);
    open.appName = u"galc"_s; // a part of its name
    auto click = bindingFor(demo::bottomClick, TapAction::switchDesktopRight);
    click.requireClick = true;
    return {
        bindingFor(demo::rightEdge, TapAction::switchDesktopRight),
        bindingFor(demo::leftEdge, TapAction::switchDesktopLeft),
        bindingFor(demo::palm, TapAction::hideAll), // the palm must not reach it
        open,
        focusBinding(demo::middle, u"org.xfce.mousepad"_s),
        focusBinding(demo::upperRight, terminal, u"release"_s, windows.build),
        // The number went to a window of another application in the meantime.
        focusBinding(demo::upperLeft, terminal, u"inbox - work"_s, windows.editor),
        focusBinding(demo::lowerLeft, terminal, u"release"_s),
        bindingFor(demo::topRight, TapAction::closeWindow),
        click,
        bindingFor(demo::topLeft, TapAction::hideAll),
    };
}

std::vector<DemoStep> demoSteps(const DemoWindows& windows) {
    return {
        step(demo::rightEdge, u"one workspace right"_s, wentRight),
        step(demo::leftEdge, u"one workspace left"_s, wentLeft),
        step(demo::palm, u"nothing: a palm"_s, nothingChanged, u"REJECT (palm)"_s),
        step(demo::topEdge, u"opens the calculator"_s, openedCalculator),
        step(demo::middle, u"the editor to the front"_s, brought(windows.editor, 0)),
        step(demo::upperRight, u"that window, by its number"_s, brought(windows.build, 2),
             u"focus-id: focused id %1 via _AXUIElementGetWindow"_s.arg(windows.build)),
        step(demo::upperLeft, u"by title, its number is stale"_s, brought(windows.inbox, 3),
             u"focus: CG+AX: focused 'Inbox — Work'"_s),
        step(demo::lowerLeft, u"by a part of its title"_s, brought(windows.build, 2),
             u"focus: CG+AX: focused 'build — release.log'"_s),
        step(demo::topRight, u"closes the window"_s, closedActiveWindow),
        step(demo::bottomClick, u"one workspace right"_s, wentRight),
        step(demo::topLeft, u"hides everything"_s, hidEverything),
    };
}

} // namespace brimlow::desktop
