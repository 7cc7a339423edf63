#include "platform/CGWindow.h"

#include "platform/OwnedWindows.h"

namespace brimlow::platform {

std::optional<std::vector<CGWindowInfo>> CGWindowListCopyWindowInfo(CGWindowListOption /*option*/,
                                                                    CGWindowID /*relativeTo*/) {
    const auto windows = ownedWindows();
    if (!windows)
        return std::nullopt;
    std::vector<CGWindowInfo> infos;
    infos.reserve(windows->size());
    for (auto each = windows->rbegin(); each != windows->rend(); ++each) {
        CGWindowInfo& info = infos.emplace_back();
        info.kCGWindowNumber = each->window.number;
        if (each->window.ownerPid != 0)
            info.kCGWindowOwnerPID = each->window.ownerPid;
        if (!each->window.title.isEmpty())
            info.kCGWindowName = each->window.title;
        info.ownerBundleIdentifier = each->owner;
    }
    return infos;
}

} // namespace brimlow::platform
