#pragma once

#include "platform/FileViewer.h"

namespace brimlow::platform {

/// The desktop's file manager, over the session bus; without one that selects files, whatever
/// application opens folders.
class DesktopFileViewer final : public FileViewer {
public:
    void reveal(const QString& path) override;
};

} // namespace brimlow::platform
