// day-of-use-benchmark [TAPS]: what a day leaves behind on the heap. The application with its views
// in a described world, on a clock that runs as fast as the machine can: 100,000 taps and 1,000
// openings of the main window in 24 hours.

#include "bench/whole/Process.h"
#include "bench/whole/Table.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/FakeTrackpad.h"
#include "tests/support/TestPlatform.h"
#include "tools/desktop/ScratchPreferences.h"
#include "ui/BrimlowApp.h"
#include "ui/MainWindowView.h"
#include "ui/files/FileDialogs.h"
#include "ui/style/ApplicationStyle.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QPushButton>

#include <malloc.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace brimlow;

namespace {

constexpr int tapsOfADay = 100'000;
constexpr double tapLength = 0.1;
constexpr double pause = 24.0 * 3600 / tapsOfADay - tapLength; // seconds
constexpr int tapsPerOpening = 100;
constexpr int tapsWhileOpen = 5; // on each page
constexpr int warmUp = 2000;     // taps, after which everything has been there a few times

/// Nobody chooses a file.
class NoFiles final : public FileDialogs {
public:
    void save(const Request&, Done) override {}
    void open(const Request&, Done) override {}
};

struct Spot {
    double x;
    double y;
    TapAction action;
};

// The last one is tapped twice in a hundred taps, so that taps are switched off and on again.
constexpr std::array<Spot, 10> spots{{{0.05, 0.1, TapAction::none},
                                      {0.05, 0.3, TapAction::switchDesktopLeft},
                                      {0.05, 0.5, TapAction::switchDesktopRight},
                                      {0.05, 0.7, TapAction::closeWindow},
                                      {0.05, 0.9, TapAction::openApp},
                                      {0.95, 0.1, TapAction::focusWindow},
                                      {0.95, 0.3, TapAction::hideAll},
                                      {0.95, 0.5, TapAction::customCommand},
                                      {0.95, 0.7, TapAction::focusWindow},
                                      {0.95, 0.9, TapAction::toggleBrimlow}}};

/// Everything that was put off for the event loop, the deletion of objects included.
void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class Day {
public:
    Day() {
        describe();
        app_.launch(BrimlowApp::Launch::atLogin);
        settle();
    }

    /// So many taps more, and an opening of the window at each hundredth.
    void use(int taps) {
        for (int i = 0; i < taps; ++i) {
            if (i % tapsPerOpening == 0)
                open();
            tap();
            if (i % tapsPerOpening == tapsWhileOpen)
                turnTo(u"Tap"_s);
            else if (i % tapsPerOpening == 2 * tapsWhileOpen)
                turnTo(u"Permissions"_s);
            else if (i % tapsPerOpening == 3 * tapsWhileOpen)
                close();
        }
    }

    long taken() const { return taken_; }
    long openings() const { return openings_; }

private:
    void describe() {
        const QString mail = u"org.example.mail"_s;
        world_.applications.install({.id = mail, .plainName = u"Mail"_s});
        world_.session.openWindow(mail, getpid(), u"Inbox"_s);
        world_.session.openWindow(mail, getpid(), u"Drafts"_s);
        world_.devices.plugIn({u"Trackpad"_s, u"/dev/input/event5"_s});
        world_.defaults.setBool(true, u"hasCompletedOnboarding"_s);
        TapPositionMappings store(0, world_.defaults);
        for (const Spot& spot : spots) {
            auto binding = desktop::bindingAt(u"Spot"_s, spot.x, spot.y, spot.action);
            binding.appName = mail;
            binding.windowTitle = u"Drafts"_s;
            store.add(binding);
        }
    }

    void tap() {
        const int turn = count_++ % tapsPerOpening;
        const Spot& spot = turn >= tapsPerOpening - 2 ? spots.back() : spots.at(turn % 9);
        pad_.tap(spot.x, spot.y, {.duration = tapLength});
        world_.time.advance(pause);
        settle();
        for (const QString& line : world_.log.take(platform::Stream::error))
            taken_ += line.contains("AppCoordinator: TAP"_L1) ? 1 : 0;
        world_.session.takeJournal();
        world_.applications.takeLaunches();
    }

    static MainWindowView* window() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* view = dynamic_cast<MainWindowView*>(widget))
                return view;
        return nullptr;
    }
    void open() {
        app_.openMainWindow();
        settle();
        openings_ += window()->isVisible() ? 1 : 0;
    }
    static void turnTo(const QString& section) {
        for (auto* button : window()->findChildren<QPushButton*>())
            if (button->text() == section)
                button->click();
        settle();
    }
    static void close() {
        window()->close();
        settle();
    }

    test::TestPlatform world_;
    test::FakeTrackpad pad_{world_.time};
    style::ApplicationStyle style_;
    NoFiles files_;
    BrimlowApp app_{files_};
    int count_ = 0;
    long taken_ = 0;
    long openings_ = 0;
};

qint64 heapKilobytes() {
    const auto heap = mallinfo2();
    return static_cast<qint64>((heap.uordblks + heap.hblkhd) / 1024);
}

int measure(int taps) {
    Day day;
    day.use(warmUp);
    const qint64 heapBefore = heapKilobytes();
    const qint64 memoryBefore = bench::memoryOf(getpid()).written;
    const long takenBefore = day.taken();
    const long openingsBefore = day.openings();
    QElapsedTimer time;
    time.start();
    day.use(taps);
    const qint64 heap = heapKilobytes() - heapBefore;
    const qint64 memory = bench::memoryOf(getpid()).written - memoryBefore;
    const long taken = day.taken() - takenBefore;
    if (taken != taps) {
        std::fprintf(stderr, "only %ld of %d taps were taken\n", taken, taps);
        return 1;
    }
    bench::report(u"heap growth after %1 taps and %2 window openings"_s.arg(taps).arg(
                      day.openings() - openingsBefore),
                  u"%1 KB"_s.arg(heap), u"at most 500 KB"_s);
    bench::report(u"  growth of what is written to, heap and all"_s, u"%1 KB"_s.arg(memory),
                  u"at most 500 KB"_s);
    bench::report(u"  %1 hours of use took"_s.arg(24.0 * taps / tapsOfADay, 0, 'g', 3),
                  u"%1 s"_s.arg(time.elapsed() / 1000), {});
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    const int taps = argc > 1 ? std::atoi(argv[1]) : tapsOfADay; // NOLINT(cert-err34-c)
    if (argc > 2 || taps < 1) {
        std::fprintf(stderr, "usage: %s [TAPS]\n", argv[0]);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(u"default.warning=false"_s);  // it cannot raise windows
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent"); // not the user's own panel
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return measure(taps);
}
