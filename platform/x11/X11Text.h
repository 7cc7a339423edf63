#pragma once

#include "platform/x11/X11Property.h"

#include <QString>

namespace brimlow::platform {

/// The text of a property of type UTF8_STRING, STRING (Latin-1) or COMPOUND_TEXT, up to its first
/// NUL; empty for other types.
QString textOf(const X11Connection& connection, const X11Property& property);

} // namespace brimlow::platform
