#pragma once

namespace brimlow::access {

/// Forgets what the caller left: environment, folder, file mode mask, signals, and descriptors
/// other than the three standard ones, which are open afterwards. False when it fails.
bool leaveCaller();

/// Gives up every capability, for good and for every child. What is left to root then is what its
/// files allow their owner. False when it fails.
bool dropPrivileges();

} // namespace brimlow::access
