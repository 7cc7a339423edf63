#include "platform/linux/icons/ThemeIcons.h"

#include "platform/linux/icons/ConfiguredIconTheme.h"
#include "platform/simulated/VirtualTime.h"
#include "tests/platform/icons/ScratchIcons.h"
#include "tests/support/Printing.h"

#include <QFile>
#include <QGuiApplication>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

struct IconsTest : testing::Test {
    IconsTest() {
        scratch.writeIndex(u"user/Mine"_s, "Circle, Parent");
        scratch.writeIndex(u"system/Circle"_s, "Mine,Circle,../Parent");
        scratch.writeIndex(u"system/Parent"_s, "hicolor,Nowhere");
        scratch.writeIndex(u"system/hicolor"_s, {});
        scratch.draw(fallback, {48, 48});
        icons.setAppearance({u"Mine"_s, 1});
    }

    /// The colour of the icon's middle.
    QColor colour(const QString& name, int points = 18) {
        const QImage image = icons.image(name, points);
        return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
    }

    const QString fallback = u"system/hicolor/48x48/application-x-executable.png"_s;
    const bool hidden = qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 0;
    QGuiApplication application{argc, nullptr};
    ScratchIcons scratch;
    VirtualTime time;
    ThemeIcons icons{
        time, {scratch.path(u"user"_s), scratch.path(u"system"_s), scratch.path(u"pixmaps"_s)}};
};

TEST_F(IconsTest, TakesTheBestFileThereIs) {
    struct Row {
        int points;
        double ratio;
        QStringList files; // the expected one first
    };
    const QString theme = u"system/Mine/"_s;
    const QString image16 = theme + u"16x16/x.png"_s;
    const QString image48 = theme + u"48x48/x.png"_s;
    const QString image256 = theme + u"256x256/x.png"_s;
    const QString drawing = theme + u"scalable/x.svg"_s;
    const QString parent16 = u"system/Parent/16x16/x.png"_s;
    const QString common48 = u"system/hicolor/48x48/x.png"_s;
    const std::vector<Row> rows{
        {16, 1, {image16, image48, drawing}},
        {18, 1, {image48, image16, drawing, image256}},
        {18, 1, {drawing, image16, image256}},
        {18, 1, {image256, image16}},
        {18, 1, {image16, parent16, common48}},
        {18, 1, {parent16, common48}},
        {18, 2, {theme + u"24x24@2/x.png"_s, image16, drawing}},
        {18, 8, {image256, image48, drawing}},
        {600, 1, {theme + u"48x48/x.svg"_s, image256}},
        {18, 1, {u"user/Mine/48x48/x.png"_s, image48}},
        {18, 1, {theme + u"48x48/x.xpm"_s, image16}},
        {18, 1, {common48, u"user/x.png"_s}},
        {18, 1, {u"user/x.png"_s, u"pixmaps/x.png"_s}},
        {18, 1, {u"pixmaps/x.xpm"_s}},
        {18, 1, {fallback}},
    };
    for (const auto& [points, ratio, files] : rows) {
        for (const auto& file : files)
            scratch.draw(file, {48, 48});
        icons.setAppearance({u"Mine"_s, ratio});
        time.advance(5);
        for (const auto& name : {u"x"_s, u"x.png"_s})
            EXPECT_EQ(colour(name, points), scratch.colour(files[0])) << files[0].toStdString();
        EXPECT_EQ(colour(scratch.path(files[0]), points), scratch.colour(files[0]));
        for (const auto& file : files) {
            if (file != fallback)
                QFile::remove(scratch.path(file));
        }
    }
    EXPECT_EQ(colour({}), scratch.colour(fallback));
    QFile::remove(scratch.path(fallback));
    EXPECT_TRUE(icons.image(u"x"_s, 18).isNull());
}

TEST_F(IconsTest, FillsASquareAndKeepsTheShape) {
    for (const auto& [ratio, side] : {std::pair(1.0, 18), {1.25, 23}, {2.0, 36}}) {
        for (const auto* suffix : {"png", "svg", "xpm"}) {
            const QString file = u"wide."_s + QLatin1StringView(suffix);
            scratch.draw(file, {128, 64});
            icons.setAppearance({{}, ratio});
            const QImage image = icons.image(scratch.path(file), 18);
            EXPECT_EQ(image.size(), QSize(side, side));
            EXPECT_EQ(image.devicePixelRatio(), ratio);
            const QColor colour = scratch.colour(file);
            EXPECT_EQ(image.pixelColor(1, side / 2), colour) << suffix;
            EXPECT_EQ(image.pixelColor(side - 2, side / 2), colour) << suffix;
            EXPECT_EQ(image.pixelColor(1, side / 4 - 2).alpha(), 0) << suffix;
            EXPECT_EQ(image.pixelColor(1, side - side / 4 + 1).alpha(), 0) << suffix;
        }
    }
}

TEST_F(IconsTest, ShrinkingLeavesNoDarkEdges) {
    QImage half(256, 256, QImage::Format_ARGB32);
    half.fill(Qt::transparent);
    for (int y = 0; y < 256; ++y)
        std::fill_n(reinterpret_cast<QRgb*>(half.scanLine(y)), 135, 0xffffffffU);
    half.save(scratch.path(u"half.png"_s));
    const QImage image = icons.image(scratch.path(u"half.png"_s), 18);
    const QColor edge = image.pixelColor(135 * 18 / 256, 9);
    EXPECT_GT(edge.alpha(), 50);
    EXPECT_LT(edge.alpha(), 200);
    EXPECT_GT(edge.red(), 250);
}

TEST_F(IconsTest, TakesTheNextBestWhereAFileIsNoPicture) {
    const QString folder = u"user/Mine/48x48/"_s;
    scratch.draw(folder + u"short.png"_s, {48, 48});
    QFile cut(scratch.path(folder + u"short.png"_s));
    ASSERT_TRUE(cut.resize(cut.size() / 2));
    scratch.draw(folder + u"huge.png"_s, {5000, 8});
    scratch.write(folder + u"text.svg"_s, "<svg");
    scratch.write(folder + u"nothing.svg"_s, "<svg xmlns='http://www.w3.org/2000/svg' width='0'/>");
    ASSERT_EQ(mkfifo(qPrintable(scratch.path(folder + u"pipe.png"_s)), 0600), 0);
    for (const auto& file :
         {u"short.png"_s, u"huge.png"_s, u"text.svg"_s, u"nothing.svg"_s, u"pipe.png"_s}) {
        const QString name = file.chopped(4);
        const QString nextBest = u"user/"_s + name + u".png"_s;
        scratch.draw(nextBest, {16, 16});
        time.advance(5);
        EXPECT_EQ(colour(name), scratch.colour(nextBest)) << name.toStdString();
        EXPECT_EQ(colour(scratch.path(folder + file)), scratch.colour(fallback));
    }
    for (const auto& name : {u"../user/huge"_s, u"."_s, u".png"_s})
        EXPECT_EQ(colour(name), scratch.colour(fallback)) << name.toStdString();
}

TEST_F(IconsTest, NoticesChangesAfterAWhile) {
    const QString late = u"user/Mine/48x48/late.png"_s;
    EXPECT_EQ(colour(u"late"_s), scratch.colour(fallback));
    scratch.draw(late, {48, 48});
    time.advance(4.9);
    EXPECT_EQ(colour(u"late"_s), scratch.colour(fallback));
    time.advance(0.1);
    EXPECT_EQ(colour(u"late"_s), scratch.colour(late));

    icons.setAppearance({u"Other"_s, 1});
    EXPECT_EQ(colour(u"late"_s), scratch.colour(fallback));
    scratch.writeIndex(u"user/Other"_s, "Mine");
    time.advance(5);
    EXPECT_EQ(colour(u"late"_s), scratch.colour(late));
    QFile::remove(scratch.path(late));
    time.advance(5);
    EXPECT_EQ(colour(u"late"_s), scratch.colour(fallback));
}

TEST(ConfiguredIconTheme, IsReadFromTheDesktopsSettings) {
    const ScratchIcons scratch;
    qputenv("XDG_CONFIG_HOME", scratch.path({}).toUtf8());
    qputenv("XDG_CONFIG_DIRS", scratch.path(u"none"_s).toUtf8());
    EXPECT_EQ(configuredIconTheme(), u"hicolor"_s);
    scratch.write(u"kdeglobals"_s, "[$i]\n[Colors:View][Inactive]\nx[$d]\n[Icons]\nTheme=breeze\n");
    EXPECT_EQ(configuredIconTheme(), u"breeze"_s);
    scratch.write(u"gtk-3.0/settings.ini"_s, "[Settings]\ngtk-icon-theme-name = Papirus-Dark\n");
    EXPECT_EQ(configuredIconTheme(), u"Papirus-Dark"_s);
}

} // namespace
} // namespace brimlow::test
