#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow {

/// A window that can be bound.
struct PickableWindow {
    std::uint32_t id = 0; // its number in the window list
    QString title;        // never empty

    bool operator==(const PickableWindow&) const = default;
};

/// What one look at an application's windows brought: some, or a message on why there are none.
struct WindowScan {
    std::vector<PickableWindow> windows; // front to back
    std::optional<QString> refreshError;
};

/// Looks at the windows that an application has now, on whatever workspace, and asks for leave to
/// read their titles where that is missing. Main thread.
WindowScan scanWindows(const std::optional<QString>& bundleId);

/// What to say of a running application of that name when none of its `owned` windows has a title.
QString whyNoneIsPickable(const QString& name, qsizetype owned, bool canReadTitles);

} // namespace brimlow
