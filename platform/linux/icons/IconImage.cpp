#include "platform/linux/icons/IconImage.h"

#include "platform/RegularFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>

namespace brimlow::platform {

namespace {

constexpr qint64 largestFile = 16 << 20; // bytes
constexpr int largestSide = 4096;        // pixels: 64 MB for a moment

bool isDrawing(const QByteArray& format) {
    return format.startsWith("svg");
}

bool drawingsWork() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance());
}

QImage centred(const QImage& image, int side) {
    // What a copy has outside of the image is transparent.
    const QSize margin = (QSize(side, side) - image.size()) / 2;
    return image.copy(-margin.width(), -margin.height(), side, side);
}

/// Drawings that Qt cannot make out come out empty.
bool showsNothing(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (std::any_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) > 0; }))
            return false;
    }
    return true;
}

} // namespace

QImage readIconImage(const QString& file, int side) {
    QByteArray bytes = readRegularFile(file, largestFile).bytes;
    if (bytes.isEmpty())
        return {};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, QFileInfo(file).suffix().toLower().toLatin1());
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > largestSide || size.height() > largestSide)
        return {};
    const QSize target = size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (isDrawing(reader.format())) {
        if (!drawingsWork())
            return {};
        reader.setScaledSize(target);
    }
    // Images are read whole and then shrunk: the reader's own shrinking averages the colour of
    // transparent pixels in and leaves dark edges.
    QImage image = reader.read();
    if (image.isNull())
        return {};
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    if (showsNothing(image))
        return {};
    if (image.size() != target)
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return centred(image, side);
}

} // namespace brimlow::platform
