#pragma once

#include <QHashFunctions>
#include <QImage>
#include <QString>

#include <optional>

namespace brimlow {

/// One installed application. Two with one identifier are the same, whatever else they say.
struct InstalledApp {
    QString id; // bundle identifier
    QString name;
    QString path;               // of the bundle
    std::optional<QImage> icon; // 18 × 18 points; absent where the icon theme has none for anything

    bool operator==(const InstalledApp& other) const { return id == other.id; }
};

inline std::size_t qHash(const InstalledApp& app, std::size_t seed = 0) {
    return qHash(app.id, seed);
}

} // namespace brimlow
