#include "platform/linux/icons/ConfiguredIconTheme.h"

#include <QSettings>
#include <QStandardPaths>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

QString configuredIconTheme() {
    struct Setting {
        QString file;
        QString key;
    };
    for (const auto& setting :
         {Setting{u"gtk-3.0/settings.ini"_s, u"Settings/gtk-icon-theme-name"_s},
          Setting{u"kdeglobals"_s, u"Icons/Theme"_s}}) {
        const QString file =
            QStandardPaths::locate(QStandardPaths::GenericConfigLocation, setting.file);
        if (file.isEmpty())
            continue;
        const QString theme =
            QSettings(file, QSettings::IniFormat).value(setting.key).toString().trimmed();
        if (!theme.isEmpty())
            return theme;
    }
    return u"hicolor"_s;
}

} // namespace brimlow::platform
