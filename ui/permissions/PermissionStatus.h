#pragma once

#include "ui/controls/Badge.h"
#include "ui/style/Theme.h"

#include <optional>

namespace brimlow {

/// How a permission's state looks.
struct PermissionStatus {
    QString symbol;
    style::Tone tone;
    QString text;
    controls::Badge::Kind kind;
};

/// Without `granted` nobody can say. `notGranted` is the text where it is false.
PermissionStatus permissionStatus(std::optional<bool> granted, const QString& notGranted);

} // namespace brimlow
