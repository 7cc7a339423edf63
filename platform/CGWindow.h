#pragma once

#include <QString>

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow::platform {

using CGWindowID = std::uint32_t;

constexpr CGWindowID kCGNullWindowID = 0;

enum CGWindowListOption : std::uint32_t { kCGWindowListExcludeDesktopElements = 16 };

/// What the list says of a window; what cannot be told is absent.
struct CGWindowInfo {
    CGWindowID kCGWindowNumber = 0;
    std::optional<pid_t> kCGWindowOwnerPID;
    std::optional<QString> kCGWindowName; // its title
    /// Of the application it belongs to; a process may run several. Empty when unknown.
    QString ownerBundleIdentifier;
};

/// Every window of every workspace, front to back, without the desktop's own furniture; absent when
/// the session cannot be asked. Main thread.
std::optional<std::vector<CGWindowInfo>> CGWindowListCopyWindowInfo(CGWindowListOption option,
                                                                    CGWindowID relativeTo);

} // namespace brimlow::platform
