#pragma once

#include "platform/Date.h"
#include "platform/linux/icons/IconTheme.h"

#include <QStringList>

#include <vector>

namespace brimlow::platform {

/// Finds the files of icons in the icon themes of this machine, by the rules of the freedesktop.org
/// icon themes. Not thread-safe.
class IconSearch {
public:
    /// Where desktops keep themes and loose icons, first first.
    static QStringList standardFolders();

    explicit IconSearch(const QStringList& folders);

    /// The files that may show an icon, best first: in the theme, in those it inherits from, in
    /// "hicolor", and in no theme. A suffix in `icon` is ignored.
    ///
    /// What the folders hold is looked at again only when `now` is some seconds after the last
    /// look.
    QStringList find(const QString& icon, const QString& theme, int pixels, Instant now);

private:
    void refresh(const QString& theme, Instant now);
    void readTheme(const QString& name);

    QStringList folders_;
    QString theme_;
    std::vector<IconTheme> themes_; // in the order of their search
    std::vector<IconFolder> loose_;
    Instant lookedAt_ = Instant::distantPast();
};

} // namespace brimlow::platform
