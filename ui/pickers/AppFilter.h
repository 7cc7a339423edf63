#pragma once

#include "actions/InstalledApp.h"

#include <vector>

namespace brimlow {

/// The applications whose name or identifier has the query in it, in any case as the user's
/// language has cases; all of them for a query of blanks. Their order stays.
std::vector<InstalledApp> filteredApps(const std::vector<InstalledApp>& apps, const QString& query);

} // namespace brimlow
