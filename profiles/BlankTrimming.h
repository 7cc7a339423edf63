#pragma once

#include <QStringView>

namespace brimlow {

/// `text` without the blanks at its ends: Unicode's space separators and the tab. Line breaks are
/// no blanks, so this removes less than QString::trimmed, and more than ASCII's space.
QStringView trimmedBlanks(QStringView text);

} // namespace brimlow
