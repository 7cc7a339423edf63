#include "ui/permissions/PermissionStatus.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Badge;
using style::Theme;

PermissionStatus permissionStatus(std::optional<bool> granted, const QString& notGranted) {
    if (!granted)
        return {u"questionmark.circle.fill"_s, &Theme::greySymbol, u"Check in Settings"_s,
                Badge::Kind::grey};
    if (*granted)
        return {u"checkmark.circle.fill"_s, &Theme::greenSymbol, u"Granted"_s, Badge::Kind::green};
    return {u"exclamationmark.triangle.fill"_s, &Theme::orangeSymbol, notGranted,
            Badge::Kind::orange};
}

} // namespace brimlow
