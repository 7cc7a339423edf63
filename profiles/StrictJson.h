#pragma once

#include <QByteArray>
#include <QJsonValue>

namespace brimlow::json {

/// The object or list that `text` (UTF-8) holds, or an undefined value if it is not JSON to the
/// letter, if an object has two members of one name, or if it nests deeper than Qt reads (1,024
/// levels). For what others wrote: Qt alone also takes numbers like "1." and ".5", raw control
/// characters, unknown escapes and halves of surrogate pairs, and keeps the last of two members of
/// one name. Any thread.
QJsonValue strictlyParsed(const QByteArray& text);

} // namespace brimlow::json
