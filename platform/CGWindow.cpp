#include "platform/CGWindow.h"

#include "platform/Platform.h"
#include "platform/WindowOwners.h"

namespace brimlow::platform {

std::optional<std::vector<CGWindowInfo>> CGWindowListCopyWindowInfo(CGWindowListOption /*option*/,
                                                                    CGWindowID /*relativeTo*/) {
    const auto windows = Platform::current().session.windows().list();
    if (!windows)
        return std::nullopt;
    const auto owners = ownersOf(*windows);
    std::vector<CGWindowInfo> infos;
    infos.reserve(windows->size());
    for (std::size_t i = windows->size(); i-- > 0;) {
        const Window& window = (*windows)[i];
        CGWindowInfo& info = infos.emplace_back();
        info.kCGWindowNumber = window.number;
        if (window.ownerPid != 0)
            info.kCGWindowOwnerPID = window.ownerPid;
        if (!window.title.isEmpty())
            info.kCGWindowName = window.title;
        info.ownerBundleIdentifier = owners[static_cast<qsizetype>(i)];
    }
    return infos;
}

} // namespace brimlow::platform
