#include "ui/AppDelegate.h"

#include "engine/AppSettings.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct Delegate : testing::Test {
    TestPlatform world;
    AppDelegate delegate;

    void startFrom(const QString& path) {
        world.bundle = platform::NSBundle(path, {}, {});
        delegate.applicationWillFinishLaunching();
    }
};

TEST_F(Delegate, FromADiskImageNothingStarts) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "what is left at an exit from the middle looks like leaks";
#endif
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    startFrom(u"/Volumesx/Brimlow.app"_s); // and comes back
    startFrom(u"/home/user/Volumes/Brimlow.app"_s);
    // Reads what is on screen, for the parent process, and presses its button.
    const auto answer = [] {
        const QWidget* alert = QApplication::activeModalWidget();
        std::fprintf(stderr, "%s\n", qPrintable(shownTexts(*alert).join(u'|')));
        shownButton(*alert, u"Quit"_s)->click();
    };
    EXPECT_EXIT(
        {
            QTimer::singleShot(0, answer);
            startFrom(u"/Volumes/Foo/Brimlow.app"_s);
        },
        testing::ExitedWithCode(0),
        "Move Brimlow to Applications\\|Brimlow is currently running from a disk image and can't "
        "request macOS permissions from there.\n\n1. Drag Brimlow onto the Applications shortcut "
        "in this window.\n2. Eject the disk image.\n3. Open Brimlow from your Applications "
        "folder.");
}

TEST_F(Delegate, TheFirstLaunchShowsTheGuideUntilItIsCompleted) {
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(delegate.onboardingWindow());
    const QPoint off = delegate.onboardingWindow()->geometry().center()
                       - QGuiApplication::primaryScreen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 24) << "half a title bar";
    delegate.onboardingWindow()->close();
    world.time.run();
    EXPECT_FALSE(delegate.onboardingWindow());

    delegate.applicationDidFinishLaunching();
    auto* guide = delegate.onboardingWindow();
    ASSERT_TRUE(guide) << "closed, it comes again";
    for (const auto& button : {u"Next"_s, u"Next"_s, u"Get Started"_s})
        shownButton(*guide, button)->click();
    EXPECT_FALSE(guide->isVisible());
    world.time.advance(10);
    EXPECT_FALSE(delegate.onboardingWindow());
    delegate.applicationDidFinishLaunching();
    EXPECT_FALSE(delegate.onboardingWindow());
}

} // namespace
} // namespace brimlow::test
