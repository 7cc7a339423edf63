#pragma once

#include "tests/platform/applications/EntryFolder.h"

#include <QColor>
#include <QTemporaryDir>

namespace brimlow::test {

/// Icon folders of a test's own. Each picture in them has one colour, which tells its path.
class ScratchIcons {
public:
    QString path(const QString& file) const { return folder_.filePath(file); }
    static QColor colour(const QString& file);

    void write(const QString& file, const QByteArray& bytes) const { writeFile(path(file), bytes); }
    /// An image or a drawing, as the suffix of its name says.
    void draw(const QString& file, QSize size) const;
    /// The index of a theme with the folders 16x16, 24x24@2, 48x48, 256x256 and scalable.
    void writeIndex(const QString& theme, const QByteArray& parents) const;

private:
    QTemporaryDir folder_;
};

} // namespace brimlow::test
