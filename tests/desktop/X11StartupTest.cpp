#include "tests/desktop/X11Desktop.h"
#include "tests/desktop/X11TestClient.h"

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

class Startup : public X11Desktop {
protected:
    std::uint32_t openWithToken(const QString& program, const QString& token) {
        return desktop.openWindow(u"env"_s, {u"DESKTOP_STARTUP_ID="_s + token, program});
    }
};

INSTANTIATE_TEST_SUITE_P(On, Startup, managers, nameOf);

platform::DesktopEntry calculator() {
    platform::DesktopEntry entry;
    entry.id = u"galculator"_s;
    entry.name = u"Rechner \"ä\" \\ 1"_s;
    entry.executable = u"galculator"_s;
    entry.icon = u"calc"_s;
    entry.file = u"/usr/share/applications/galculator.desktop"_s;
    return entry;
}

TEST_P(Startup, AnnouncesAProgramAndTakesItBack) {
    X11TestClient witness(desktop.displayName());
    auto& startup = session->startup();
    const QByteArray token = startup.begin(calculator()).toUtf8();
    const QByteArray announced = witness.nextAnnouncement();
    EXPECT_TRUE(announced.startsWith("new: ")) << announced.toStdString();
    EXPECT_FALSE(token.endsWith("_TIME0"));
    for (const QByteArray& part :
         {QByteArray("ID=" + token), QByteArray("NAME=Rechner\\ \\\"\xc3\xa4\\\"\\ \\\\\\ 1"),
          QByteArray("BIN=galculator"), QByteArray("ICON=calc"), QByteArray("SCREEN=0"),
          QByteArray("APPLICATION_ID=/usr/share/applications/galculator.desktop")})
        EXPECT_TRUE(announced.contains(part)) << announced.toStdString();
    EXPECT_NE(startup.begin({}).toUtf8(), token);
    EXPECT_TRUE(witness.nextAnnouncement().startsWith("new: "));

    startup.abandon({});
    startup.abandon(QString::fromUtf8(token));
    EXPECT_TRUE(witness.nextAnnouncement().startsWith(QByteArray("remove: ID=" + token)));
}

TEST_P(Startup, GetsTheFirstWindowOfAProgramTheFocus) {
    X11TestClient witness(desktop.displayName());
    const auto work = openTerminal(u"work"_s);
    ASSERT_TRUE(session->windows().activate(work));
    ASSERT_TRUE(becomesActive(work));
    const QString token = session->startup().begin(calculator());
    ASSERT_TRUE(witness.nextAnnouncement().startsWith("new: "));

    const auto window = openWithToken(u"galculator"_s, token);
    ASSERT_NE(window, 0U) << desktop.error().toStdString();
    EXPECT_TRUE(becomesActive(window));
    const QByteArray end = witness.nextAnnouncement(); // some quote what needs no quotes
    EXPECT_TRUE(end.startsWith("remove: ID=") && end.contains(token.toUtf8())) << end.toStdString();
}

} // namespace
} // namespace brimlow::desktop
