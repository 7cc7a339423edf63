#include "platform/simulated/SimulatedSession.h"

#include "platform/DesktopEntry.h"

#include <algorithm>
#include <stdexcept>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

std::uint32_t SimulatedSession::openWindow(const QString& applicationId, pid_t pid,
                                           const QString& title) {
    windows_.push_back({.number = ++lastNumber_,
                        .ownerPid = pid,
                        .title = title,
                        .applicationId = applicationId,
                        .workspace = currentWorkspace_,
                        .age = lastNumber_});
    focus(lastNumber_);
    return lastNumber_;
}

Window& SimulatedSession::window(std::uint32_t number) {
    const auto found = std::ranges::find(windows_, number, &Window::number);
    if (found == windows_.end())
        throw std::out_of_range("no such window");
    return *found;
}

void SimulatedSession::setWorkspaces(int count, int current) {
    workspaceCount_ = count;
    currentWorkspace_ = current;
}

Abilities SimulatedSession::abilities() {
    const auto unless = [](bool able, const QString& reason) {
        return able ? Outcome::success() : Outcome::failure(reason);
    };
    const QString distrust = u"the simulated world does not trust us"_s;
    return {.sessionName = name_,
            .controlsWindows = unless(trusted_, distrust),
            .readsTitles = unless(trusted_ && readsTitles_, u"titles are secret here"_s),
            .switchesWorkspaces = unless(trusted_, distrust),
            .remedy = trusted_ && readsTitles_ ? QString() : u"Ask it nicely."_s};
}

std::optional<std::vector<Window>> SimulatedSession::list() {
    if (listsUntilFailure_ >= 0 && listsUntilFailure_-- == 0)
        return std::nullopt;
    auto windows = windows_;
    for (auto& window : windows)
        if (!readsTitles_)
            window.title.clear();
    return windows;
}

std::optional<Window> SimulatedSession::find(std::uint32_t number) {
    const auto found = std::ranges::find(windows_, number, &Window::number);
    return found == windows_.end() ? std::nullopt : std::optional(*found);
}

void SimulatedSession::focus(std::uint32_t number) {
    for (auto& each : windows_)
        each.active = each.number == number;
}

Outcome SimulatedSession::change(const QString& verb, std::uint32_t number,
                                 const std::function<void(Window&)>& edit) {
    const auto found = std::ranges::find(windows_, number, &Window::number);
    if (found == windows_.end())
        return Outcome::failure(u"no such window"_s);
    journal_ << verb + u' ' + found->title;
    edit(*found);
    return Outcome::success();
}

void SimulatedSession::toTop(std::uint32_t number) {
    std::stable_partition(windows_.begin(), windows_.end(),
                          [=](const Window& each) { return each.number != number; });
}

Outcome SimulatedSession::activate(std::uint32_t number) {
    const auto outcome = change(u"activate"_s, number, [this](Window& each) {
        each.hidden = false;
        currentWorkspace_ = each.workspace.value_or(currentWorkspace_);
        focus(each.number);
    });
    toTop(number);
    return outcome;
}

Outcome SimulatedSession::raise(std::uint32_t number) {
    const auto outcome = change(u"raise"_s, number, [](Window&) {});
    toTop(number);
    return outcome;
}

Outcome SimulatedSession::unhide(std::uint32_t number) {
    return change(u"unhide"_s, number, [](Window& each) { each.hidden = false; });
}

Outcome SimulatedSession::hide(std::uint32_t number) {
    if (!unhideable_.isEmpty() && window(number).applicationId == unhideable_)
        return Outcome::failure(u"refused"_s);
    return change(u"hide"_s, number, [](Window& each) { each.hidden = true; });
}

Outcome SimulatedSession::close(std::uint32_t number) {
    const auto outcome = change(u"close"_s, number, [](Window&) {});
    std::erase_if(windows_, [number](const Window& each) { return each.number == number; });
    return outcome;
}

Outcome SimulatedSession::step(Direction direction) {
    const int next = currentWorkspace_ + (direction == Direction::left ? -1 : 1);
    currentWorkspace_ = std::clamp(next, 0, workspaceCount_ - 1);
    journal_ << u"workspace %1"_s.arg(currentWorkspace_);
    return Outcome::success();
}

Outcome SimulatedSession::post(const KeyEvent& event) {
    journal_ << u"key %1 %2 flags %3"_s.arg(event.keyCode)
                    .arg(event.down ? u"down"_s : u"up"_s)
                    .arg(event.flags, 0, 16);
    return Outcome::success();
}

QString SimulatedSession::begin(const DesktopEntry& application) {
    journal_ << u"startup "_s + application.id;
    return u"token of "_s + application.id;
}

void SimulatedSession::abandon(const QString& token) {
    journal_ << u"abandon "_s + token;
}

} // namespace brimlow::platform
