#include "ui/access/KeyboardSettings.h"

#include <QStringList>

#include <array>

namespace brimlow {

using namespace Qt::StringLiterals;

QString keyboardSettingsOf(const QString& desktops, platform::Applications& applications) {
    struct Row {
        QStringView desktop;
        QStringView identifier;
    };
    static constexpr std::array rows = {
        Row{u"GNOME", u"gnome-keyboard-panel"},  Row{u"KDE", u"kcm_keys"},
        Row{u"XFCE", u"xfce-keyboard-settings"}, Row{u"X-Cinnamon", u"cinnamon-settings-keyboard"},
        Row{u"MATE", u"mate-keybinding"},        Row{u"LXQt", u"lxqt-config-globalkeyshortcuts"},
    };
    const auto catalogue = applications.catalogue();
    for (const QString& desktop : desktops.split(u':'))
        for (const Row& row : rows)
            if (desktop.compare(row.desktop, Qt::CaseInsensitive) == 0
                && !catalogue->bundles().pathOf(row.identifier.toString()).isEmpty())
                return row.identifier.toString();
    return {};
}

} // namespace brimlow
