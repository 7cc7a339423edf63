#pragma once

#include <QByteArrayView>
#include <QString>

namespace brimlow::platform {

/// The X Consortium's text interchange encoding, in which clients such as xterm write titles that
/// Latin-1 cannot hold. Characters of sets that are not known here read as '?'; broken sequences
/// lose what they cover and nothing else.
QString decodeCompoundText(QByteArrayView bytes);

} // namespace brimlow::platform
