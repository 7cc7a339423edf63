#include "platform/linux/icons/ThemeIcons.h"

#include "platform/Clock.h"
#include "platform/linux/icons/ConfiguredIconTheme.h"
#include "platform/linux/icons/IconImage.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

void ThemeIcons::setAppearance(IconAppearance appearance) {
    const std::lock_guard lock(mutex_);
    appearance_ = std::move(appearance);
}

IconAppearance ThemeIcons::appearance() {
    const std::lock_guard lock(mutex_);
    if (appearance_.themeName.isEmpty())
        appearance_.themeName = configuredIconTheme();
    return appearance_;
}

QStringList ThemeIcons::find(const QString& nameOrPath, const QString& theme, int pixels) {
    if (nameOrPath.startsWith(u'/'))
        return {nameOrPath};
    const std::lock_guard lock(mutex_);
    return search_.find(nameOrPath, theme, pixels, clock_.now());
}

QImage ThemeIcons::image(const QString& nameOrPath, int points) {
    const auto [theme, pixelRatio] = appearance();
    const int pixels = qRound(points * pixelRatio);
    if (pixels <= 0)
        return {};
    for (const auto& wanted : {nameOrPath, u"application-x-executable"_s}) {
        for (const auto& file : find(wanted, theme, pixels)) {
            QImage image = readIconImage(file, pixels);
            if (image.isNull())
                continue;
            image.setDevicePixelRatio(pixelRatio);
            return image;
        }
    }
    return {};
}

} // namespace brimlow::platform
