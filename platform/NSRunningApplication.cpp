#include "platform/NSRunningApplication.h"

#include "platform/Applications.h"
#include "platform/OwnedWindows.h"
#include "platform/Platform.h"

#include <algorithm>

namespace brimlow::platform {

namespace {

Windows& sessionWindows() {
    return Platform::current().session.windows();
}

// Of windows that are stacked bottom to top, the one that the user had last: the topmost that can
// be seen, else the topmost that the task list shows, else the topmost.
const Window* lastUsed(const std::vector<Window>& windows) {
    const auto rank = [](const Window& window) {
        return window.inTaskList ? (window.hidden ? 1 : 2) : 0;
    };
    const Window* best = nullptr;
    for (const auto& window : windows)
        if (!best || rank(window) >= rank(*best))
            best = &window;
    return best;
}

} // namespace

std::vector<NSRunningApplication> NSRunningApplication::all() {
    const auto windows = ownedWindows();
    if (!windows)
        return {};
    QString active;
    std::vector<NSRunningApplication> applications;
    for (const auto& [window, owner] : *windows) {
        auto found = applications.begin();
        while (
            found != applications.end()
            && (found->processIdentifier_ != window.ownerPid || found->bundleIdentifier_ != owner))
            ++found;
        if (found == applications.end()) {
            applications.push_back(NSRunningApplication(owner, window.ownerPid));
            found = std::prev(applications.end());
        }
        found->windows_.push_back(window);
        found->active_ = found->active_ || window.active;
        if (window.active)
            active = owner;
    }
    for (auto& application : applications)
        application.active_ =
            application.active_ || (!active.isEmpty() && application.bundleIdentifier_ == active);
    std::ranges::stable_sort(applications, {}, [](const NSRunningApplication& application) {
        return std::ranges::min(application.windows_, {}, &Window::age).age;
    });
    return applications;
}

std::vector<NSRunningApplication>
NSRunningApplication::runningApplicationsWithBundleIdentifier(const QString& bundleIdentifier) {
    auto applications = all();
    std::erase_if(applications, [&](const NSRunningApplication& application) {
        return application.bundleIdentifier_ != bundleIdentifier;
    });
    return applications;
}

std::optional<QString> NSRunningApplication::localizedName() const {
    if (bundleIdentifier_.isEmpty())
        return std::nullopt;
    const auto catalogue = Platform::current().applications.catalogue();
    const auto* entry = catalogue->find(bundleIdentifier_);
    return entry ? entry->name : bundleIdentifier_;
}

NSApplicationActivationPolicy NSRunningApplication::activationPolicy() const {
    return std::ranges::any_of(windows_, &Window::inTaskList)
               ? NSApplicationActivationPolicy::regular
               : NSApplicationActivationPolicy::accessory;
}

bool NSRunningApplication::isHidden() const {
    return std::ranges::all_of(
        windows_, [](const Window& window) { return window.hidden || !window.inTaskList; });
}

bool NSRunningApplication::hide() const {
    bool any = false;
    for (const auto& window : windows_) {
        if (window.inTaskList && !window.hidden)
            any |= sessionWindows().hide(window.number).done;
    }
    return any;
}

// Asks for the windows anew: others may have been raised since.
bool NSRunningApplication::activateWithOptions() const {
    std::vector<Window> own;
    for (const auto& [window, owner] : ownedWindows().value_or(std::vector<OwnedWindow>()))
        if (owner == bundleIdentifier_)
            own.push_back(window);
    const Window* window = lastUsed(own);
    return window && sessionWindows().activate(window->number);
}

} // namespace brimlow::platform
