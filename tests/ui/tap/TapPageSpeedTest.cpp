#include "engine/AppCoordinator.h"
#include "tests/support/Speed.h"
#include "tests/support/TestPlatform.h"
#include "ui/files/FileDialogs.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/tap/TapSettingsView.h"

#include <QTest>

#include <gtest/gtest.h>
#include <malloc.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct NoDialogs final : FileDialogs {
    void save(const Request&, Done) override {}
    void open(const Request&, Done) override {}
};

/// 200 bindings in a dressed window that is painted.
struct TapPageSpeed : testing::Test {
    TapPageSpeed() {
        TapProfile profile = *store.activeProfile();
        profile.bindings.clear();
        for (int i = 0; i < 200; ++i) {
            const int row = i / 20;
            profile.bindings.push_back({.id = QUuid::createUuid(),
                                        .name = u"Spot %1"_s.arg(i),
                                        .action = TapAction::openApp,
                                        .appName = u"org.mozilla.firefox"_s,
                                        .samples = {{(i % 20) / 20.0, row / 10.0}}});
        }
        store.profiles = {profile};
        window.resize(580, 560);
        window.show();
        open();
    }

    void open() {
        page = std::make_unique<TapSettingsView>(coordinator, dialogs, &window);
        page->setGeometry(window.rect());
        page->show();
        QCoreApplication::processEvents();
    }
    /// Up to the picture on the screen.
    void change(int number) {
        auto binding = store.activeProfile()->bindings[static_cast<std::size_t>(number % 200)];
        binding.name = u"Changed %1"_s.arg(number % 1000, 4);
        store.update(binding);
        show();
    }
    void show() {
        world.time.run();
        QCoreApplication::processEvents();
    }

    style::ApplicationStyle applicationStyle;
    TestPlatform world;
    AppSettings settings;
    PermissionsManager permissions;
    AppCoordinator coordinator{settings, permissions, 0};
    TapPositionMappings& store = coordinator.positionMappings;
    NoDialogs dialogs;
    QWidget window;
    std::unique_ptr<TapSettingsView> page;
};

TEST_F(TapPageSpeed, OpensAndFollowsTheStoreAtOnce) {
    double opening = 1e9;
    for (int turn = 0; turn < 5; ++turn) {
        page.reset();
        const double before = processorMilliseconds();
        open();
        opening = std::min(opening, processorMilliseconds() - before);
    }
    double repaint = 1e9;
    for (int turn = 0; turn < 20; ++turn) {
        auto profiles = store.profiles.get();
        profiles.front().bindings[1].name = u"Changed %1"_s.arg(turn);
        store.profiles = profiles; // which also writes it: the view's part begins now
        const double before = processorMilliseconds();
        show();
        repaint = std::min(repaint, processorMilliseconds() - before);
    }
    std::printf("opening 200 bindings: %.1f ms, a change of one of them: %.2f ms\n", opening,
                repaint);
    EXPECT_LT(opening, 150 * slowdown);
    EXPECT_LT(repaint, 16 * slowdown);
}

/// Of 300 changes, or as many as the environment says.
TEST_F(TapPageSpeed, KeepsNothingOfWhatItShowed) {
    bool isSet = false;
    const int wanted = qEnvironmentVariableIntValue("BRIMLOW_TEST_CHANGES", &isSet);
    const int changes = isSet ? wanted : 300;
    for (int number = 0; number < 300; ++number)
        change(number);
    const auto before = ::mallinfo2().uordblks;
    for (int number = 0; number < changes; ++number)
        change(number);
    const auto growth = static_cast<double>(::mallinfo2().uordblks) - static_cast<double>(before);
    std::printf("growth over %d changes: %.1f kB\n", changes, growth / 1000);
    EXPECT_LT(growth, 60e3); // what caches hold more by chance
}

} // namespace
} // namespace brimlow::test
