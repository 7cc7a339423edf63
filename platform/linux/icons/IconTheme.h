#pragma once

#include "platform/linux/icons/IconFolder.h"

#include <QStringList>

#include <filesystem>
#include <vector>

namespace brimlow::platform {

/// The file names under which an icon may be found in a folder.
struct IconFileNames {
    struct File {
        QString name;
        std::uint32_t hash;
        bool drawing; // it has no pixels of its own
    };
    /// In the order of preference within one folder.
    std::vector<File> files;

    /// `icon`: a name without a suffix.
    explicit IconFileNames(const QString& icon);
};

/// One icon theme: its index and what its folders hold. A theme that is not installed is an empty
/// one, so that its coming is noticed like any other change.
class IconTheme {
public:
    /// `bases`: the folders in which themes are looked for. The first index counts, the icons of
    /// all of them do.
    IconTheme(const QString& name, const QStringList& bases);

    const QString& name() const { return name_; }
    const QStringList& parents() const { return parents_; }
    /// Whether its index and its top folders are still those that were read.
    bool isCurrent() const { return stamps() == stamps_; }
    void refreshFolders();

    /// Adds the paths of the files that may show this icon at so many pixels a side, best first:
    /// images of that size or a little larger, then drawings, which take longer, then images that
    /// are much larger, then smaller ones.
    void find(const IconFileNames& icon, int pixels, QStringList& paths) const;

private:
    using Stamps = std::vector<std::filesystem::file_time_type>;

    /// The folders of one size, in device pixels.
    struct Size {
        int nominal;
        int least; // what drawings are meant for
        int most;
        std::vector<IconFolder> folders; // one for each base that has the theme
    };

    void readIndex(const QByteArray& text);
    Stamps stamps() const;

    QString name_;
    QStringList places_; // <base>/<name>
    Stamps stamps_;
    QStringList parents_;
    std::vector<Size> sizes_;
};

} // namespace brimlow::platform
