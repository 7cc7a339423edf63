#include "ui/pickers/StableTitle.h"

#include "profiles/BlankTrimming.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestName = 60; // characters as a reader counts them

/// "Page - Google Chrome - Profile"
std::optional<QString> stableBrowserTitle(const QString& title) {
    // The longer names of Chrome are in front of the one that they begin with.
    for (const auto& name : {u"Google Chrome Canary"_s, u"Google Chrome Beta"_s, u"Google Chrome"_s,
                             u"Brave Browser"_s, u"Microsoft Edge"_s}) {
        const QString marker = u" - "_s + name;
        const auto at = title.indexOf(marker);
        if (at < 0)
            continue;
        const auto rest = QStringView(title).mid(at + marker.size()).trimmed();
        const auto profile = rest.startsWith("- "_L1) ? rest.mid(2).trimmed() : QStringView();
        return profile.isEmpty() ? name : profile.toString();
    }
    return std::nullopt;
}

bool isLong(const QString& text) {
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype count = 0; count <= longestName; ++count)
        if (characters.toNextBoundary() < 0)
            return false;
    return true;
}

bool looksLikeAName(const QString& piece) {
    return !piece.contains(u' ') && !piece.contains(u'.') && !isLong(piece);
}

} // namespace

QString extractStableTitle(const QString& title) {
    if (const auto browser = stableBrowserTitle(title))
        return *browser;
    QStringList pieces;
    for (const auto piece : QStringView(title).split(u'\u2014'))
        if (const auto words = trimmedBlanks(piece); !words.isEmpty())
            pieces << words.toString();
    if (pieces.size() <= 1)
        return title;
    const auto name = std::ranges::find_if(pieces, looksLikeAName);
    const bool isOnly = name != pieces.end()
                        && std::find_if(name + 1, pieces.end(), looksLikeAName) == pieces.end();
    return isOnly ? *name : pieces.last();
}

} // namespace brimlow
