#pragma once

#include <QImage>

namespace brimlow::platform {

/// The picture in a file, in the middle of a transparent square of so many pixels a side. Null for
/// what is no picture, and for one that is far too large for an icon. Drawings need a
/// QGuiApplication, because there may be text in them; without one they are null. Any thread.
QImage readIconImage(const QString& file, int side);

} // namespace brimlow::platform
