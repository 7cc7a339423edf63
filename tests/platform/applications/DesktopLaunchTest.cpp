#include "platform/linux/applications/GioApplications.h"
#include "tests/platform/applications/EntryFolder.h"
#include "tests/platform/applications/Tokens.h"
#include "tests/support/TestPlatform.h"
#include "tools/desktop/PrivateDesktop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>

#include <gtest/gtest.h>

#include <optional>

namespace brimlow::desktop {
namespace {

using namespace Qt::StringLiterals;
using test::entryText;
using test::writeFile;

/// A desktop on which this process itself lives, with entries in its user's data folder.
class DesktopLaunch : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(desktop.start()) << desktop.error().toStdString();
        const auto& environment = desktop.environment();
        for (const QString& variable : environment.keys())
            qputenv(variable.toLatin1().constData(), environment.value(variable).toUtf8());
        applications.emplace(std::vector<platform::DataFolder>{{data(), true}},
                             std::chrono::milliseconds(0));
    }

    QString data() const { return desktop.environment().value(u"XDG_DATA_HOME"_s); }

    /// Starts an application with this entry.
    platform::Outcome launch(const QString& id, const QByteArray& entry) {
        writeFile(data() + u"/applications/"_s + id + u".desktop"_s, entry);
        return applications->launch(id, tokens);
    }

    /// Waits until a window of this class ("instance.Class") has the focus; its process, or 0. This
    /// process's own event loop stands still.
    qint64 activeWindowBecomes(const QString& className) {
        qint64 process = 0;
        desktop.waitFor(
            [&](const DesktopState& now) {
                const auto* window = now.window(now.activeWindow);
                process = window && window->className == className ? window->pid : 0;
                return process != 0;
            },
            15'000);
        return process;
    }

    int argumentCount = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{argumentCount, arguments};
    test::TestPlatform world;
    PrivateDesktop desktop{WindowManager::openbox};
    std::optional<platform::GioApplications> applications;
    test::Tokens tokens;
};

TEST_F(DesktopLaunch, HasTheBusActivateWhatAsksForIt) {
    writeFile(data() + u"/dbus-1/services/org.xfce.mousepad.service"_s,
              "[D-BUS Service]\nName=org.xfce.mousepad\n"
              "Exec=/usr/bin/mousepad --gapplication-service\n");
    QFile original(u"/usr/share/applications/org.xfce.mousepad.desktop"_s);
    ASSERT_TRUE(original.open(QFile::ReadOnly));
    const QByteArray entry =
        original.readAll().replace("[Desktop Entry]\n", "[Desktop Entry]\nDBusActivatable=true\n");
    ASSERT_TRUE(launch(u"org.xfce.mousepad"_s, entry));
    const auto process = activeWindowBecomes(u"mousepad.Mousepad"_s);
    ASSERT_NE(process, 0);
    QFile commandLine(u"/proc/%1/cmdline"_s.arg(process));
    ASSERT_TRUE(commandLine.open(QFile::ReadOnly));
    EXPECT_TRUE(commandLine.readAll().contains("--gapplication-service"));
}

TEST_F(DesktopLaunch, HearsLaterThatTheBusActivatesNothing) {
    const QByteArray entry = entryText("Nobody", "true", "DBusActivatable=true\n");
    ASSERT_TRUE(launch(u"org.example.Nobody"_s, entry));
    ASSERT_TRUE(launch(u"org.example.Nobody"_s, entry + "StartupNotify=true\n"));
    EXPECT_EQ(tokens.abandoned, QStringList());
    const QDeadlineTimer deadline(10'000);
    while (tokens.abandoned.isEmpty() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    EXPECT_EQ(tokens.abandoned, QStringList{u"token 1"_s});
}

TEST_F(DesktopLaunch, OpensATerminalForWhatNeedsOneAndOutlivesTheBus) {
    ChildProcess bus(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s},
                     desktop.environment());
    ASSERT_EQ(bus.start(), QString());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readFirstLine(5000));
    ASSERT_TRUE(launch(u"cat"_s, entryText("Cat", "cat", "Terminal=true\n")));
    EXPECT_NE(activeWindowBecomes(u"xterm.XTerm"_s), 0);
    ASSERT_TRUE(bus.stop());
    for (int turn = 0; turn < 20; ++turn) {
        EXPECT_TRUE(desktop.state());
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(launch(u"calculator"_s, entryText("Calculator", "galculator")));
    EXPECT_NE(activeWindowBecomes(u"galculator.Galculator"_s), 0);
}

} // namespace
} // namespace brimlow::desktop
