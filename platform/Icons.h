#pragma once

#include <QImage>

namespace brimlow::platform {

/// Pictures of applications, in the icon theme and for the screen of this session.
class Icons {
public:
    virtual ~Icons() = default;

    /// The icon of that name or absolute path, `points` × `points` in device-independent pixels
    /// (its device pixel ratio is the screen's). Where there is none, the theme's icon for programs
    /// in general; null where there is none of that either. Any thread.
    virtual QImage image(const QString& nameOrPath, int points) = 0;
};

} // namespace brimlow::platform
