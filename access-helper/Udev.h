#pragma once

namespace brimlow::access {

/// Lets udev read its rules anew and apply them to the pointers that are there. False when there
/// is no udev, or none that answers within some seconds.
bool tellUdev();

} // namespace brimlow::access
