#pragma once

#include <QString>

namespace brimlow {

/// What a feed's HTML says, as plain text without pictures; nothing that it refers to is loaded. Of
/// a long one the beginning. Main thread.
QString plainNotes(const QString& html);

} // namespace brimlow
