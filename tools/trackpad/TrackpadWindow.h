#pragma once

#include "tools/trackpad/TrackpadSurface.h"

namespace brimlow::trackpad {

/// A trackpad on screen. As one of hardware it is there on every workspace, above the other
/// windows, and using it takes the focus from nobody: what is done to the front window is not done
/// to this one.
class TrackpadWindow : public QWidget {
    Q_OBJECT

public:
    explicit TrackpadWindow(std::size_t mostFingers);

    TrackpadSurface& surface() { return *surface_; }

    /// Shows it, on all workspaces where there are several.
    void appear();

private:
    void stayOnAllWorkspaces();

    TrackpadSurface* surface_;
};

} // namespace brimlow::trackpad
