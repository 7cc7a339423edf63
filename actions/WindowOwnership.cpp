#include "actions/WindowOwnership.h"

#include "platform/NSWorkspace.h"

namespace brimlow {

using namespace platform;

bool belongsTo(const CGWindowInfo& window, const QString& bundleId,
               const std::optional<NSRunningApplication>& firstInstance) {
    const QString& owner = window.ownerBundleIdentifier;
    if (owner == bundleId || owner.startsWith(bundleId + u'.'))
        return true;
    return firstInstance && window.kCGWindowOwnerPID == firstInstance->processIdentifier()
           && !NSWorkspace::URLForApplicationWithBundleIdentifier(owner);
}

std::optional<NSRunningApplication> firstInstanceOf(const QString& bundleId) {
    const auto running = NSRunningApplication::runningApplicationsWithBundleIdentifier(bundleId);
    return running.empty() ? std::nullopt : std::optional(running.front());
}

} // namespace brimlow
