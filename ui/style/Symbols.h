#pragma once

#include "ui/style/Theme.h"

#include <QIcon>
#include <QPixmap>
#include <QStringList>

namespace brimlow::style {

/// A drawing of resources/symbols in one colour, `size` logical pixels wide and high and sharp at
/// that ratio of device pixels to logical ones. Kept in Qt's pixmap cache. Empty for a name that
/// there is no drawing of.
QPixmap symbol(const QString& name, const QColor& colour, int size, qreal devicePixelRatio);

/// The same as an icon that takes its colour from the theme each time it is painted, so that it
/// follows the desktop by itself. Disabled, it has the colour of disabled text.
QIcon symbolIcon(const QString& name, Tone tone = &Theme::text);

/// All that can be drawn, in alphabetical order.
QStringList symbolNames();

} // namespace brimlow::style
