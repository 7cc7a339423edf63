#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace brimlow {

/// A version of the program as its feed describes it. The texts are somebody else's.
struct AppcastItem {
    QString title = {};
    QString version = {}; // as people are told it
    QUrl page = {};       // where to get it, over https; empty where the feed names no such place
    QString description = {}; // HTML, as it came
};

struct AppcastFeed {
    std::optional<AppcastItem> newest = {};
    QString error = {}; // one sentence, where there is none
};

/// Bytes. A feed that keeps every version for years has a tenth of this.
constexpr qsizetype largestFeed = 1 << 20;

/// The newest version that an appcast (RSS 2.0 with Sparkle's names) offers to everybody on this
/// system; the first of equal ones. Document types and their entities are refused. Any thread.
AppcastFeed readAppcast(const QByteArray& bytes);

} // namespace brimlow
