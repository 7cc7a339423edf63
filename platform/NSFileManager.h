#pragma once
#include "platform/Applications.h"
#include "platform/Platform.h"

#include <QStringList>

#include <optional>
namespace brimlow::platform {
class NSFileManager {
public:
    static std::optional<QStringList> contentsOfDirectory(const QString& p) {
        const auto c = Platform::current().applications.catalogue();
        return c->bundles().isFolder(p) ? std::optional(c->bundles().contents(p)) : std::nullopt;
    }
    static bool fileExists(const QString& p, bool& d) {
        const auto c = Platform::current().applications.catalogue();
        return d = c->bundles().isFolder(p) || c->bundles().entryAt(p);
    }
};
} // namespace brimlow::platform
