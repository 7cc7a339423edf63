#include "platform/linux/icons/IconSearch.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr double secondsBetweenLooks = 5;
constexpr auto general = "hicolor"_L1; // where applications put their icons for every theme

QString withoutSuffix(const QString& icon) {
    for (const auto suffix : {".png"_L1, ".svg"_L1, ".xpm"_L1}) {
        if (icon.endsWith(suffix))
            return icon.chopped(suffix.size());
    }
    return icon;
}

} // namespace

QStringList IconSearch::standardFolders() {
    QStringList folders{QDir::homePath() + u"/.icons"_s};
    for (const auto& data : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        folders << data + u"/icons"_s;
    folders << u"/usr/share/pixmaps"_s;
    return folders;
}

IconSearch::IconSearch(const QStringList& folders) : folders_(folders) {
    for (const auto& folder : folders_)
        loose_.emplace_back(folder);
}

QStringList IconSearch::find(const QString& icon, const QString& theme, int pixels, Instant now) {
    const QString name = withoutSuffix(icon);
    if (name.isEmpty() || name.contains(u'/'))
        return {};
    refresh(theme, now);
    const IconFileNames fileNames(name);
    QStringList paths;
    for (const auto& searched : themes_)
        searched.find(fileNames, pixels, paths);
    for (const auto& folder : loose_) {
        for (const auto& file : fileNames.files) {
            if (folder.mayHold(file.hash))
                paths << folder.path() + u'/' + file.name;
        }
    }
    return paths;
}

void IconSearch::refresh(const QString& theme, Instant now) {
    if (theme == theme_ && now - lookedAt_ < secondsBetweenLooks)
        return;
    lookedAt_ = now;
    if (theme != theme_ || !std::ranges::all_of(themes_, &IconTheme::isCurrent)) {
        theme_ = theme;
        themes_.clear();
        readTheme(theme);
        readTheme(general);
    }
    for (auto& searched : themes_)
        searched.refreshFolders();
    for (auto& folder : loose_)
        folder.refresh();
}

void IconSearch::readTheme(const QString& name) {
    if (name.isEmpty() || name.contains(u'/')
        || std::ranges::find(themes_, name, &IconTheme::name) != themes_.end())
        return;
    const QStringList parents = themes_.emplace_back(name, folders_).parents();
    for (const auto& parent : parents) {
        if (parent != general) // it comes last
            readTheme(parent);
    }
}

} // namespace brimlow::platform
