#include "ui/style/DesktopAppearance.h"

#include "tests/support/Printing.h"
#include "tools/desktop/PrivateBus.h"
#include "ui/style/ApplicationStyle.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QPalette>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

using PortalSettings = QMap<QString, QVariantMap>;

const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString gnomeGroup = u"org.gnome.desktop.interface"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

/// The settings portal of a desktop, on a connection of its own.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    FakePortal(QDBusConnection bus, PortalSettings settings)
        : bus_(std::move(bus)), settings_(std::move(settings)) {
        bus_.registerObject(portalPath, this, QDBusConnection::ExportAllSlots);
        bus_.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    void set(const QString& group, const QString& key, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(portalPath, u"org.freedesktop.portal.Settings"_s,
                                                 u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        bus_.send(signal);
    }

public Q_SLOTS:
    PortalSettings ReadAll(const QStringList& groups) const {
        PortalSettings asked;
        for (const QString& group : groups)
            asked[group] = settings_[group];
        return asked;
    }

private:
    QDBusConnection bus_;
    PortalSettings settings_;
};

QVariant colour(double red, double green, double blue) {
    QDBusArgument argument;
    argument.beginStructure();
    argument << red << green << blue;
    argument.endStructure();
    return QVariant::fromValue(argument);
}

class Desktop : public testing::Test {
protected:
    void SetUp() override {
        qDBusRegisterMetaType<PortalSettings>();
        ASSERT_EQ(bus.start(QProcessEnvironment::systemEnvironment()), QString());
    }
    void TearDown() override {
        for (const auto& name : {u"portal"_s, u"application"_s})
            QDBusConnection::disconnectFromBus(name);
    }

    QDBusConnection connection(const QString& name) {
        return QDBusConnection::connectToBus(bus.address(), name);
    }

    QTemporaryDir folder;
    desktop::PrivateBus bus{folder.path()};
};

TEST_F(Desktop, IsFollowed) {
    FakePortal portal(connection(u"portal"_s),
                      {{appearanceGroup, {{u"color-scheme"_s, 1U}, {u"contrast"_s, 1U}}},
                       {gnomeGroup, {{u"text-scaling-factor"_s, 1.5}}}});
    DesktopAppearance desktop(connection(u"application"_s));
    ApplicationStyle applicationStyle;
    applicationStyle.follow(desktop);
    EXPECT_EQ(desktop.appearance(), Appearance{}) << "waited for the portal";
    const auto becomes = [&](const Appearance& expected) {
        return QTest::qWaitFor([&] { return desktop.appearance() == expected; });
    };

    Appearance expected{.scheme = ColourScheme::dark, .highContrast = true, .textScale = 1.5};
    EXPECT_TRUE(becomes(expected));
    EXPECT_EQ(applicationStyle.theme().window, makeTheme(expected).window);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), makeTheme(expected).window);
    EXPECT_EQ(QApplication::font().pixelSize(), 20);

    portal.set(appearanceGroup, u"accent-color"_s, colour(1, 0, 0));
    expected.accent = Qt::red;
    EXPECT_TRUE(becomes(expected));
    portal.set(appearanceGroup, u"accent-color"_s, colour(-1, -1, -1));
    portal.set(appearanceGroup, u"color-scheme"_s, 2U);
    portal.set(appearanceGroup, u"contrast"_s, 0U);
    portal.set(gnomeGroup, u"text-scaling-factor"_s, 1.0);
    EXPECT_TRUE(becomes({}));
}

TEST_F(Desktop, WithoutAnOpinionIsJudgedByItsPalette) {
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    const DesktopAppearance withoutBus(QDBusConnection(u"no such bus"_s));
    EXPECT_EQ(withoutBus.appearance().scheme, ColourScheme::dark);

    DesktopAppearance desktop(connection(u"application"_s));
    QApplication::setPalette(QPalette());
    const auto becomes = [&](ColourScheme scheme) {
        return QTest::qWaitFor([&] { return desktop.appearance().scheme == scheme; });
    };
    QTest::qWait(50); // the portal comes late
    FakePortal portal(connection(u"portal"_s), {{appearanceGroup, {{u"color-scheme"_s, 2U}}}});
    EXPECT_TRUE(becomes(ColourScheme::light));
    portal.set(appearanceGroup, u"color-scheme"_s, 0U);
    EXPECT_TRUE(becomes(ColourScheme::dark));
}

} // namespace
} // namespace brimlow::style

#include "DesktopAppearanceTest.moc"
