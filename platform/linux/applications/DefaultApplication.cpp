#include "platform/linux/applications/DefaultApplication.h"

#include "platform/linux/applications/GioPointers.h"

#include <QUrl>

namespace brimlow::platform {

QString openWithDefaultApplication(const QString& path) {
    GError* error = nullptr;
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded();
    if (g_app_info_launch_default_for_uri(address.constData(), nullptr, &error))
        return {};
    return QString::fromUtf8(ErrorPointer(error)->message);
}

} // namespace brimlow::platform
