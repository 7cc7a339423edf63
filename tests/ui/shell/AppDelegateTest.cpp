#include "ui/AppDelegate.h"

#include "engine/AppSettings.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct Delegate : testing::Test {
    TestPlatform world;
    AppDelegate delegate;

    void runFrom(const QString& path) { world.bundle = platform::NSBundle(path, {}, {}); }
    QStringList prompts() { return world.settings.takeJournal(); }
};

/// Reads what is on screen, for the parent process, and presses its button.
void answerAlert() {
    QTimer::singleShot(0, [] {
        const QWidget* alert = QApplication::activeModalWidget();
        std::fprintf(stderr, "%s\n", qPrintable(shownTexts(*alert).join(u'|')));
        shownButton(*alert, u"Quit"_s)->click();
    });
}

TEST_F(Delegate, FromADiskImageNothingStarts) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "what is left at an exit from the middle looks like leaks";
#endif
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const auto& path : {u"/Applications/Brimlow.app"_s, u"/Volumesx/Brimlow.app"_s,
                             u"/usr/bin/brimlow"_s, u"/home/user/Volumes/Brimlow.app"_s}) {
        runFrom(path);
        delegate.applicationWillFinishLaunching(); // and comes back
    }
    EXPECT_EXIT(
        {
            runFrom(u"/Volumes/Foo/Brimlow.app"_s);
            answerAlert();
            delegate.applicationWillFinishLaunching();
        },
        testing::ExitedWithCode(0),
        "Move Brimlow to Applications\\|Brimlow is currently running from a disk image and can't "
        "request macOS permissions from there.\n\n1. Drag Brimlow onto the Applications shortcut "
        "in this window.\n2. Eject the disk image.\n3. Open Brimlow from your Applications "
        "folder.");
}

TEST_F(Delegate, TheFirstLaunchShowsTheGuideUntilItIsCompleted) {
    delegate.applicationDidFinishLaunching();
    ASSERT_NE(delegate.onboardingWindow(), nullptr);
    EXPECT_EQ(delegate.onboardingWindow()->windowTitle(), u"Welcome to Brimlow"_s);
    EXPECT_EQ(delegate.onboardingWindow()->size(), QSize(640, 720));
    delegate.onboardingWindow()->close();
    world.time.run();
    EXPECT_EQ(delegate.onboardingWindow(), nullptr);
    EXPECT_FALSE(AppSettings().hasCompletedOnboarding()) << "closed, it comes again";

    delegate.applicationDidFinishLaunching();
    auto* guide = delegate.onboardingWindow();
    ASSERT_NE(guide, nullptr);
    for (const auto& button : {u"Next"_s, u"Next"_s, u"Get Started"_s})
        shownButton(*guide, button)->click();
    EXPECT_FALSE(guide->isVisible());
    world.log.take();
    world.time.advance(10);
    EXPECT_EQ(delegate.onboardingWindow(), nullptr);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(delegate.onboardingWindow(), nullptr);
}

TEST_F(Delegate, LaterLaunchesAskForAccessibilityWhereItIsMissing) {
    AppSettings().setHasCompletedOnboarding(true);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(prompts(), QStringList());
    world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s, u"Permission denied"_s,
                          platform::TrackpadRemedy::installRule});
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(prompts().size(), 1);
}

} // namespace
} // namespace brimlow::test
