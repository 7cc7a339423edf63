#include "ui/Display.h"

#include <QByteArrayList>
#include <QLoggingCategory>

namespace brimlow {

void chooseDisplay() {
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.*=false\nqt.gui.imageio=false"));
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    QByteArrayList platforms;
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        platforms << "wayland";
    if (qEnvironmentVariableIsSet("DISPLAY"))
        platforms << "xcb";
    platforms << "offscreen";
    qputenv("QT_QPA_PLATFORM", platforms.join(';'));
}

} // namespace brimlow
