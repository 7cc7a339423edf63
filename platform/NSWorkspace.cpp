#include "platform/NSWorkspace.h"

#include "platform/NSBundle.h"
#include "platform/Platform.h"

#include <unistd.h>

#include <algorithm>

namespace brimlow::platform {

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
            any |= Platform::current().session.windows().hide(window.number).done;
    }
    return any;
}

bool NSRunningApplication::activate() const {
    return !windows_.empty()
           && Platform::current().session.windows().activate(windows_.back().number).done;
}

std::vector<NSRunningApplication> NSWorkspace::runningApplications() {
    const auto windows = Platform::current().session.windows().list();
    if (!windows)
        return {};
    std::vector<NSRunningApplication> applications;
    for (const auto& window : *windows) {
        const QString identifier = window.ownerPid == getpid()
                                       ? Platform::current().mainBundle.bundleIdentifier()
                                       : window.applicationId;
        auto found = std::ranges::find_if(applications, [&](const auto& application) {
            return application.processIdentifier_ == window.ownerPid
                   && application.bundleIdentifier_ == identifier;
        });
        if (found == applications.end()) {
            applications.emplace_back(identifier, window.ownerPid);
            found = std::prev(applications.end());
        }
        found->windows_.push_back(window);
    }
    return applications;
}

} // namespace brimlow::platform
