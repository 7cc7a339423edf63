// focus-ladder-benchmark: how long bringing one of thirty windows forward takes, from the deferred
// request to the window manager's word that it is active. Real windows under openbox, on four
// workspaces.

#include "actions/ActionExecutor.h"
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "platform/QtMainQueue.h"
#include "platform/Streams.h"
#include "platform/SystemClock.h"
#include "platform/linux/applications/GioApplications.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "platform/simulated/SimulatedInputDevices.h"
#include "platform/simulated/SimulatedSettings.h"
#include "platform/x11/X11Session.h"
#include "tools/desktop/PrivateDesktop.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;
using namespace brimlow;
using namespace brimlow::desktop;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr int windowCount = 30;
constexpr int roundCount = 100;
constexpr int stride = 7; // from one target to the next, across the workspaces

/// Notes when the work that was put off begins.
class WatchedQueue final : public platform::MainQueue {
public:
    void async(Work work) override { queue_.async(std::move(work)); }
    void after(double seconds, Work work) override {
        queue_.after(seconds, [this, inner = std::move(work)] {
            begun = SteadyClock::now();
            inner();
        });
    }
    std::unique_ptr<platform::RepeatingTimer> every(double seconds, Work work) override {
        return queue_.every(seconds, std::move(work));
    }
    std::unique_ptr<platform::DispatchSource> makeSource(Work handler) override {
        return queue_.makeSource(std::move(handler));
    }

    SteadyClock::time_point begun;

private:
    platform::QtMainQueue queue_;
};

class Silence final : public platform::LogSink {
public:
    void write(platform::Stream, const QByteArray&) override {}
};

/// A client of its own that is told of the active window.
class Witness {
public:
    explicit Witness(const QByteArray& display) : connection_(xcb_connect(display, nullptr)) {
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection_.get(), root_, XCB_CW_EVENT_MASK, &mask);
        const char name[] = "_NET_ACTIVE_WINDOW";
        const Freed<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            connection_.get(), xcb_intern_atom(connection_.get(), 0, sizeof(name) - 1, name),
            nullptr));
        activeWindow_ = reply->atom;
    }

    /// Whether a change has come since the last call, and `number` is the active window now.
    bool sawActive(std::uint32_t number) {
        bool changed = false;
        while (Freed<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            const auto* property = reinterpret_cast<xcb_property_notify_event_t*>(event.get());
            changed = changed
                      || ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY
                          && property->atom == activeWindow_);
        }
        return changed && active() == number;
    }
    void forgetChanges() { sawActive(0); }

private:
    struct Free {
        void operator()(void* pointer) const { std::free(pointer); }
    };
    template<typename T>
    using Freed = std::unique_ptr<T, Free>;
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::uint32_t active() {
        const auto cookie =
            xcb_get_property(connection_.get(), 0, root_, activeWindow_, XCB_ATOM_WINDOW, 0, 1);
        const Freed<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection_.get(), cookie, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(std::uint32_t))
            return 0;
        return *static_cast<std::uint32_t*>(xcb_get_property_value(reply.get()));
    }

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = 0;
    xcb_atom_t activeWindow_ = 0;
};

struct Target {
    std::uint32_t number = 0;
    QString title;
};

std::vector<Target> openWindows(PrivateDesktop& desktop) {
    std::vector<Target> targets;
    for (int i = 0; i < windowCount; ++i) {
        const QString title = u"window number %1"_s.arg(i);
        const auto number = desktop.openWindow(u"xterm"_s, {u"-T"_s, title});
        if (number == 0)
            return {};
        desktop.run(u"wmctrl"_s, {u"-i"_s, u"-r"_s, QString::number(number), u"-t"_s,
                                  QString::number(i % PrivateDesktop::workspaceCount)});
        targets.push_back({number, title});
    }
    return targets;
}

/// Milliseconds of one focusing; negative when the window did not become active within 2 s.
double focus(const Target& target, bool byNumber, ActionExecutor& executor, WatchedQueue& queue,
             Witness& witness) {
    witness.forgetChanges();
    const auto limit = SteadyClock::now() + std::chrono::seconds(2);
    executor.execute(TapAction::focusWindow, u"debian-xterm"_s,
                     byNumber ? std::nullopt : std::optional(target.title),
                     byNumber ? std::optional(target.number) : std::nullopt);
    queue.begun = {};
    while (SteadyClock::now() < limit) {
        QCoreApplication::processEvents();
        if (queue.begun != SteadyClock::time_point() && witness.sawActive(target.number))
            return std::chrono::duration<double, std::milli>(SteadyClock::now() - queue.begun)
                .count();
    }
    return -1;
}

int measure() {
    PrivateDesktop desktop(WindowManager::openbox);
    QString reason = desktop.start() ? QString() : desktop.error();
    const auto targets = reason.isEmpty() ? openWindows(desktop) : std::vector<Target>();
    platform::SystemClock clock;
    WatchedQueue queue;
    Silence log;
    platform::NSUserDefaults defaults(desktop.home() + u"/preferences.json"_s, log);
    platform::NSBundle bundle({}, {});
    platform::SimulatedInputDevices devices;
    platform::GioApplications applications;
    platform::ThemeIcons icons(clock);
    const auto session = targets.empty() ? nullptr
                                         : platform::X11Session::connect(desktop.displayName(),
                                                                         applications, reason);
    if (!session) {
        std::fprintf(stderr, "no desktop to measure on: %s\n", qUtf8Printable(reason));
        return 1;
    }
    platform::SimulatedSettings settings;
    const platform::Platform platform({.clock = clock,
                                       .mainQueue = queue,
                                       .log = log,
                                       .standardUserDefaults = defaults,
                                       .mainBundle = bundle,
                                       .inputDevices = devices,
                                       .applications = applications,
                                       .icons = icons,
                                       .session = *session,
                                       .systemSettings = settings,
                                       .fileViewer = settings});
    ActionExecutor executor;
    Witness witness(desktop.displayName());
    for (const bool byNumber : {true, false}) {
        std::vector<double> times;
        for (int round = 0; round < roundCount; ++round) {
            const auto& target = targets[static_cast<std::size_t>(round * stride % windowCount)];
            times.push_back(focus(target, byNumber, executor, queue, witness));
            if (times.back() < 0) {
                std::fprintf(stderr, "\"%s\" does not become active\n",
                             qUtf8Printable(target.title));
                return 1;
            }
        }
        std::ranges::sort(times);
        std::printf("bring one of %d windows forward %-30s %6.1f ms   at most 30 ms  (p90 %.1f)\n",
                    windowCount, byNumber ? "by number, median" : "by title, median",
                    times[roundCount / 2], times[roundCount * 9 / 10]);
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    return measure();
}
