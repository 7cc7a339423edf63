#include "platform/NSRunningApplication.h"

#include "platform/Applications.h"
#include "platform/Platform.h"
#include "platform/WindowOwners.h"

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
    const auto windows = sessionWindows().list();
    if (!windows)
        return {};
    const auto owners = ownersOf(*windows);
    QString active;
    std::vector<NSRunningApplication> applications;
    for (std::size_t i = 0; i < windows->size(); ++i) {
        const Window& window = (*windows)[i];
        const QString& owner = owners[static_cast<qsizetype>(i)];
        auto found = std::ranges::find_if(applications, [&](const auto& application) {
            return application.processIdentifier_ == window.ownerPid
                   && application.bundleIdentifier_ == owner;
        });
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
    const auto windows = sessionWindows().list();
    if (!windows)
        return false;
    const auto owners = ownersOf(*windows);
    std::vector<Window> own;
    for (std::size_t i = 0; i < windows->size(); ++i)
        if (owners[static_cast<qsizetype>(i)] == bundleIdentifier_)
            own.push_back((*windows)[i]);
    const Window* window = lastUsed(own);
    return window && sessionWindows().activate(window->number);
}

} // namespace brimlow::platform
