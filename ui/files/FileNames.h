#pragma once

#include <QString>

namespace brimlow {

/// The name as a file system can store it: at most 255 bytes of UTF-8, for which the stem loses
/// characters at its end, whole ones as a reader sees them. What follows the last dot stays, unless
/// that dot is the first character. Slashes are the caller's business.
QString storableFileName(QString name);

} // namespace brimlow
