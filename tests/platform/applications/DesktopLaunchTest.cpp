#include "platform/linux/applications/GioApplications.h"
#include "platform/x11/X11Session.h"
#include "tests/platform/applications/EntryFolder.h"
#include "tests/support/TestPlatform.h"
#include "tools/desktop/PrivateDesktop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

namespace brimlow::desktop {
namespace {

using namespace Qt::StringLiterals;
using test::entryText;
using test::writeFile;

/// Counts what is begun and given up; the tokens are the session's.
class WatchedStartup final : public platform::Startup {
public:
    explicit WatchedStartup(platform::Startup& real) : real_(real) {}

    QString begin(const platform::DesktopEntry& application) override {
        ++begun;
        return real_.begin(application);
    }
    void abandon(const QString& token) override {
        ++abandoned;
        real_.abandon(token);
    }

    int begun = 0;
    int abandoned = 0;

private:
    platform::Startup& real_;
};

/// A desktop on which this process itself lives, with entries in its user's data folder.
class DesktopLaunch : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(desktop.start()) << desktop.error().toStdString();
        const auto& environment = desktop.environment();
        for (const QString& name : environment.keys())
            qputenv(name.toLatin1().constData(), environment.value(name).toUtf8());
        QString reason;
        session = platform::X11Session::connect(desktop.displayName(), applications, reason);
        ASSERT_TRUE(session) << reason.toStdString();
        startup.emplace(session->startup());
    }
    void TearDown() override {
        for (const pid_t process : launched)
            ::kill(process, SIGTERM);
    }

    QString dataFolder() const { return desktop.environment().value(u"XDG_DATA_HOME"_s); }
    void install(const QString& id, const QByteArray& text) {
        writeFile(dataFolder() + u"/applications/"_s + id + u".desktop"_s, text);
    }
    platform::GioApplications& installed() {
        if (!applications_)
            applications_.emplace(std::vector<platform::DataFolder>{{dataFolder(), true}});
        return *applications_;
    }

    /// Lets this process's event loop run until `holds`.
    template<typename Condition>
    bool turnUntil(Condition holds) {
        const QDeadlineTimer deadline(10'000);
        while (!holds() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            QThread::msleep(20);
        }
        return holds();
    }
    bool activeWindowIs(const QString& title) {
        const auto now = desktop.state();
        const auto* window = now ? now->window(now->activeWindow) : nullptr;
        return window && window->title.contains(title);
    }

    int argumentCount = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{argumentCount, arguments};
    test::TestPlatform world;
    PrivateDesktop desktop{WindowManager::openbox};
    std::optional<platform::GioApplications> applications_;
    platform::GioApplications applications{{}};
    std::unique_ptr<platform::X11Session> session;
    std::optional<WatchedStartup> startup;
    std::vector<pid_t> launched;
};

} // namespace
} // namespace brimlow::desktop
