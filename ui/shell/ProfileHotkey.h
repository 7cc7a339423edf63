#pragma once

#include <QChar>

namespace brimlow {

/// The shortcut of the profile at a position in the menu: the digits 1 to 3 with the command key
/// for the first three, none for the others.
struct ProfileHotkey {
    int index; // from 0

    /// Null for none.
    QChar keyEquivalent() const { return index >= 0 && index < 3 ? QChar(u'1' + index) : QChar(); }
};

} // namespace brimlow
