#include "ui/style/Symbols.h"

#include "tests/support/Printing.h"
#include "ui/style/ApplicationStyle.h"

#include <QImage>

#include <gtest/gtest.h>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

const QStringList needed{
    u"accessibility"_s,
    u"app.badge"_s,
    u"app.fill"_s,
    u"app"_s,
    u"arrow.clockwise"_s,
    u"arrow.clockwise.circle.fill"_s,
    u"arrow.left.circle"_s,
    u"arrow.counterclockwise"_s,
    u"arrow.right.circle"_s,
    u"arrow.up.right.square"_s,
    u"bolt.horizontal"_s,
    u"checkmark.circle.fill"_s,
    u"checkmark"_s,
    u"chevron.down"_s,
    u"display"_s,
    u"doc.on.doc"_s,
    u"eye.slash"_s,
    u"exclamationmark.triangle.fill"_s,
    u"gear"_s,
    u"hand.tap.fill"_s,
    u"hand.tap"_s,
    u"info.circle.fill"_s,
    u"info.circle"_s,
    u"keyboard"_s,
    u"lock.fill"_s,
    u"lock.shield"_s,
    u"lock"_s,
    u"macwindow.badge.plus"_s,
    u"macwindow"_s,
    u"macwindow.on.rectangle"_s,
    u"magnifyingglass"_s,
    u"nosign"_s,
    u"pencil"_s,
    u"plus.circle.fill"_s,
    u"plus"_s,
    u"power.circle"_s,
    u"questionmark.circle.fill"_s,
    u"record.circle.fill"_s,
    u"rectangle.dashed.badge.record"_s,
    u"rectangle.split.2x1"_s,
    u"square.and.arrow.down"_s,
    u"square.and.arrow.up"_s,
    u"terminal"_s,
    u"trackpad"_s,
    u"trash"_s,
    u"xmark.square"_s,
    u"wrench.and.screwdriver"_s,
    u"xmark.circle.fill"_s,
};

struct Ink {
    int pixels = 0;
    int onEdge = 0;
    int otherColour = 0;
};

Ink inkOf(const QImage& image, QRgb colour) {
    Ink ink;
    const QRect inner = image.rect().adjusted(1, 1, -1, -1);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) < 64)
                continue;
            ++ink.pixels;
            ink.onEdge += inner.contains(x, y) ? 0 : 1;
            if (qAlpha(pixel) == 255 && pixel != colour)
                ++ink.otherColour;
        }
    return ink;
}

TEST(Symbols, AllAreDrawnInsideOfTheirBoxInTheColourAskedFor) {
    const QColor colour(0x1F62C8);
    for (const QString& name : needed)
        for (const int size : {16, 22, 28})
            for (const double ratio : {1.0, 1.5, 2.0}) {
                SCOPED_TRACE(name.toStdString() + " " + std::to_string(size) + "@"
                             + std::to_string(ratio));
                const QPixmap pixmap = symbol(name, colour, size, ratio);
                EXPECT_EQ(pixmap.size(), QSize(1, 1) * size * ratio);
                EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
                const Ink ink = inkOf(pixmap.toImage(), colour.rgb());
                EXPECT_GT(ink.pixels, size * size * ratio * ratio / 25);
                EXPECT_EQ(ink.onEdge, 0);
                EXPECT_EQ(ink.otherColour, 0);
            }
}

TEST(Symbols, AreKeptAndAnUnknownOneIsEmpty) {
    const auto draw = [](QRgb colour) { return symbol(u"gear"_s, QColor(colour), 16, 1); };
    EXPECT_EQ(draw(0).cacheKey(), draw(0).cacheKey());
    EXPECT_NE(draw(0).cacheKey(), draw(1).cacheKey());
    EXPECT_TRUE(symbol(u"no.such"_s, Qt::black, 16, 1).isNull());
}

TEST(Symbols, AnIconTakesTheColourOfTheThemeThatIsCurrent) {
    ApplicationStyle applicationStyle;
    const QIcon icon = symbolIcon(u"app.fill"_s, &Theme::redText);
    const auto middle = [&icon](QIcon::Mode mode) {
        return icon.pixmap(QSize(16, 16), 1, mode).toImage().pixelColor(8, 8);
    };
    for (const auto scheme : {ColourScheme::light, ColourScheme::dark}) {
        applicationStyle.apply({.scheme = scheme});
        EXPECT_EQ(middle(QIcon::Normal), applicationStyle.theme().redText);
        EXPECT_EQ(middle(QIcon::Disabled), applicationStyle.theme().disabledText);
    }
}

} // namespace
} // namespace brimlow::style
