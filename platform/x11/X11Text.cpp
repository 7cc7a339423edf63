#include "platform/x11/X11Text.h"

#include "platform/x11/CompoundText.h"

namespace brimlow::platform {

QString textOf(const X11Connection& connection, const X11Property& property) {
    if (property.format != 8)
        return {};
    const auto bytes = QByteArrayView(property.bytes);
    const qsizetype end = bytes.indexOf('\0');
    const auto text = end < 0 ? bytes : bytes.first(end);
    if (property.type == connection.atom(Atom::utf8String))
        return QString::fromUtf8(text);
    if (property.type == XCB_ATOM_STRING)
        return QString::fromLatin1(text);
    if (property.type == connection.atom(Atom::compoundText))
        return decodeCompoundText(text);
    return {};
}

} // namespace brimlow::platform
