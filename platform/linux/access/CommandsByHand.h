#pragma once

#include <QStringList>

namespace brimlow::platform {

/// What a user types into a terminal to do by hand what the helper does: each a command for any
/// shell, the first of them several lines long. Any thread.
QStringList commandsToInstall();

} // namespace brimlow::platform
