#include "ui/style/DesktopAppearance.h"

#include "tests/support/Printing.h"
#include "tests/ui/style/FakePortal.h"
#include "tools/desktop/PrivateBus.h"
#include "ui/style/ApplicationStyle.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QPalette>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString gnomeGroup = u"org.gnome.desktop.interface"_s;

class Desktop : public testing::Test {
protected:
    void SetUp() override {
        FakePortal::registerTypes();
        ASSERT_EQ(bus.start(QProcessEnvironment::systemEnvironment()), QString());
    }
    void TearDown() override {
        for (const QString& name : names)
            QDBusConnection::disconnectFromBus(name);
    }

    QDBusConnection connection(const QString& name) {
        names << name;
        return QDBusConnection::connectToBus(bus.address(), name);
    }

    /// Whether that comes about within five seconds.
    static bool soon(const std::function<bool()>& holds) {
        const QDeadlineTimer deadline(5000);
        while (!holds() && !deadline.hasExpired()) {
            QEventLoop loop;
            QTimer::singleShot(5, &loop, &QEventLoop::quit);
            loop.exec();
        }
        return holds();
    }

    QTemporaryDir folder;
    desktop::PrivateBus bus{folder.path()};
    QStringList names;
};

QVariant colour(double red, double green, double blue) {
    return QVariant::fromValue(PortalColour{red, green, blue});
}

TEST_F(Desktop, IsFollowed) {
    FakePortal portal(connection(u"portal"_s),
                      {{appearanceGroup, {{u"color-scheme"_s, 1U}, {u"contrast"_s, 1U}}},
                       {gnomeGroup, {{u"text-scaling-factor"_s, 1.5}}}});
    DesktopAppearance desktop(connection(u"application"_s));
    ApplicationStyle applicationStyle;
    applicationStyle.follow(desktop);
    EXPECT_EQ(desktop.appearance(), Appearance{}) << "waited for the portal";
    const auto becomes = [&](const Appearance& expected) {
        return soon([&] { return desktop.appearance() == expected; });
    };

    Appearance expected{.scheme = ColourScheme::dark, .highContrast = true, .textScale = 1.5};
    EXPECT_TRUE(becomes(expected));
    EXPECT_EQ(applicationStyle.theme().window, makeTheme(expected).window);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), makeTheme(expected).window);
    EXPECT_EQ(QApplication::font().pixelSize(), 20);

    portal.set(appearanceGroup, u"color-scheme"_s, 2U);
    expected.scheme = ColourScheme::light;
    EXPECT_TRUE(becomes(expected));
    portal.set(appearanceGroup, u"accent-color"_s, colour(1, 0, 0));
    expected.accent = Qt::red;
    EXPECT_TRUE(becomes(expected));
    portal.set(appearanceGroup, u"accent-color"_s, colour(-1, -1, -1));
    portal.set(appearanceGroup, u"contrast"_s, 0U);
    portal.set(gnomeGroup, u"text-scaling-factor"_s, 1.0);
    EXPECT_TRUE(becomes({}));
}

TEST_F(Desktop, MayGetItsPortalLate) {
    DesktopAppearance desktop(connection(u"application"_s));
    QCoreApplication::processEvents();
    const FakePortal portal(connection(u"portal"_s),
                            {{appearanceGroup, {{u"color-scheme"_s, 1U}}}});
    EXPECT_TRUE(soon([&] { return desktop.appearance().scheme == ColourScheme::dark; }));
}

TEST_F(Desktop, WithoutAnOpinionIsJudgedByItsPalette) {
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    const DesktopAppearance withoutBus(QDBusConnection(u"no such bus"_s));
    EXPECT_EQ(withoutBus.appearance().scheme, ColourScheme::dark);

    FakePortal portal(connection(u"portal"_s), {{appearanceGroup, {{u"color-scheme"_s, 2U}}}});
    DesktopAppearance desktop(connection(u"application"_s));
    QApplication::setPalette(QPalette());
    EXPECT_TRUE(soon([&] { return desktop.appearance().scheme == ColourScheme::light; }));
    portal.set(appearanceGroup, u"color-scheme"_s, 0U);
    EXPECT_TRUE(soon([&] { return desktop.appearance().scheme == ColourScheme::dark; }));
}

} // namespace
} // namespace brimlow::style
