#pragma once

#include "platform/Icons.h"

namespace brimlow::platform {

/// Icons from the icon themes of this machine.
class ThemeIcons final : public Icons {
public:
    QImage image(const QString& nameOrPath, int points) override;
};

} // namespace brimlow::platform
