#pragma once

#include <QString>

#include <optional>

namespace brimlow {

class TapPositionMappings;

/// Makes the profile in the file at `path` a new, active one of `store`. Where that fails, `store`
/// is as it was, and this says why, for the user. Main thread.
std::optional<QString> importProfileFile(TapPositionMappings& store, const QString& path);

} // namespace brimlow
