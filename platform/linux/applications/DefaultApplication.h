#pragma once

#include <QString>

namespace brimlow::platform {

/// Opens a file or folder as the user's desktop would. Gives back why it cannot, in one clause;
/// empty when it does. Main thread.
QString openWithDefaultApplication(const QString& path);

} // namespace brimlow::platform
