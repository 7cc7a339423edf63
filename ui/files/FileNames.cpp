#include "ui/files/FileNames.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace brimlow {

namespace {

constexpr qsizetype nameLimit = 255; // bytes, of every file system in use

qsizetype bytesOf(QStringView text) {
    return text.toUtf8().size();
}

/// As much of the beginning as fits into that many bytes.
QString shortened(const QString& text, qsizetype room) {
    QTextBoundaryFinder boundary(QTextBoundaryFinder::Grapheme, text);
    // No character takes fewer bytes than UTF-16 units.
    boundary.setPosition(std::min(room, text.size()));
    if (!boundary.isAtBoundary())
        boundary.toPreviousBoundary();
    while (bytesOf(QStringView(text).first(boundary.position())) > room)
        boundary.toPreviousBoundary();
    return text.first(boundary.position());
}

} // namespace

QString storableFileName(QString name) {
    name.remove(QChar::Null); // ends a name for the system
    if (bytesOf(name) <= nameLimit)
        return name;
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString extension = dot > 0 ? name.sliced(dot) : QString();
    const qsizetype room = nameLimit - bytesOf(extension);
    if (room <= 0)
        return shortened(name, nameLimit);
    return shortened(name.chopped(extension.size()), room) + extension;
}

} // namespace brimlow
