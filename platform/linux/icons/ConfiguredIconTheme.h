#pragma once

#include <QString>

namespace brimlow::platform {

/// The icon theme that the files of the user's desktop settings name, "hicolor" where none does.
/// Any thread.
QString configuredIconTheme();

} // namespace brimlow::platform
