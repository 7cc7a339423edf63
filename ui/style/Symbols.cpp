#include "ui/style/Symbols.h"

#include "ui/style/ApplicationStyle.h"

#include <QDir>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QSvgRenderer>

#include <cmath>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

constexpr auto folder = ":/symbols/"_L1;

QPixmap draw(const QString& file, const QColor& colour, int pixels) {
    QSvgRenderer drawing(file);
    if (!drawing.isValid())
        return {};
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    return pixmap;
}

class SymbolEngine final : public QIconEngine {
public:
    SymbolEngine(QString name, Tone tone) : name_(std::move(name)), tone_(tone) {}

    // In a rectangle that is wider than high, at the start of its line.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const int size = std::min(rect.width(), rect.height());
        const QRect square =
            QStyle::alignedRect(QGuiApplication::layoutDirection(),
                                Qt::AlignLeft | Qt::AlignVCenter, {size, size}, rect);
        painter->drawPixmap(
            square, symbol(name_, colour(mode), size, painter->device()->devicePixelRatioF()));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new SymbolEngine(name_, tone_); }

private:
    QColor colour(QIcon::Mode mode) const {
        return currentTheme().*(mode == QIcon::Disabled ? &Theme::disabledText : tone_);
    }

    QString name_;
    Tone tone_;
};

} // namespace

QPixmap symbol(const QString& name, const QColor& colour, int size, qreal devicePixelRatio) {
    const int pixels = static_cast<int>(std::ceil(size * devicePixelRatio));
    const QString key =
        u"symbol/%1/%2/%3/%4"_s.arg(name, colour.name(QColor::HexArgb), QString::number(pixels),
                                    QString::number(devicePixelRatio));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = draw(folder + name + ".svg"_L1, colour, pixels);
    if (!pixmap.isNull())
        pixmap.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QIcon symbolIcon(const QString& name, Tone tone) {
    return QIcon(new SymbolEngine(name, tone));
}

QStringList symbolNames() {
    QStringList names = QDir(folder).entryList({u"*.svg"_s}, QDir::Files, QDir::Name);
    for (QString& name : names)
        name.chop(4);
    return names;
}

} // namespace brimlow::style
