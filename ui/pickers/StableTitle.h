#pragma once

#include <QString>

namespace brimlow {

/// The part of a window's title that is likely to stay when its tab or document changes: the
/// browser's profile or name, or that piece between em dashes that looks like an application.
QString extractStableTitle(const QString& title);

} // namespace brimlow
