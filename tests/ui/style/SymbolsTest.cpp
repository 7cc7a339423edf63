#include "ui/style/Symbols.h"

#include "tests/support/Printing.h"
#include "ui/style/ApplicationStyle.h"

#include <QImage>

#include <gtest/gtest.h>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

constexpr auto needed = R"(
    accessibility app app.badge app.fill arrow.clockwise arrow.clockwise.circle.fill
    arrow.counterclockwise arrow.left.circle arrow.right.circle arrow.up.right.square
    bolt.horizontal checkmark checkmark.circle.fill chevron.down display doc.on.doc
    exclamationmark.triangle.fill eye.slash gear hand.tap hand.tap.fill info.circle
    info.circle.fill keyboard lock lock.fill lock.shield macwindow macwindow.badge.plus
    macwindow.on.rectangle magnifyingglass nosign pencil plus plus.circle.fill power.circle
    questionmark.circle.fill record.circle.fill rectangle.dashed.badge.record
    rectangle.split.2x1 square.and.arrow.down square.and.arrow.up terminal trackpad trash
    wrench.and.screwdriver xmark.circle.fill xmark.square
)"_L1;

/// The box around what can be seen.
QRect drawnIn(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) >= 64)
                box |= QRect(x, y, 1, 1);
    return box;
}

TEST(Symbols, AllAreDrawnInsideOfTheirBox) {
    for (const QString& name : QString(needed).simplified().split(u' '))
        for (const int size : {16, 22, 28})
            for (const double ratio : {1.0, 1.5, 2.0}) {
                SCOPED_TRACE(name.toStdString() + " " + std::to_string(size) + "@"
                             + std::to_string(ratio));
                const QPixmap pixmap = symbol(name, Qt::blue, size, ratio);
                EXPECT_EQ(pixmap.size(), QSize(1, 1) * size * ratio);
                EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
                const QRect box = drawnIn(pixmap.toImage());
                EXPECT_GT(std::max(box.width(), box.height()), pixmap.width() / 3);
                EXPECT_TRUE(pixmap.rect().adjusted(1, 1, -1, -1).contains(box));
            }
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
