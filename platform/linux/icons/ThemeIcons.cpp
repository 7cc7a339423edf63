#include "platform/linux/icons/ThemeIcons.h"

namespace brimlow::platform {

QImage ThemeIcons::image(const QString&, int) {
    return {};
}

} // namespace brimlow::platform
