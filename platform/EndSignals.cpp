#include "platform/EndSignals.h"

#include <QCoreApplication>

#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

namespace brimlow::platform {

namespace {

// For the handler, which can reach nothing else.
int wakeDescriptor = -1;
std::time_t firstAsked = 0; // s, monotonic

/// Whoever passes signals on, as timeout does, sends one to us and one to our process group: a copy
/// of the first is not a second wish.
bool isCopy() {
    constexpr std::time_t patience = 1; // s
    std::timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    if (firstAsked == 0)
        firstAsked = now.tv_sec;
    return now.tv_sec - firstAsked <= patience;
}

void handle(int number) {
    if (isCopy()) {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = ::write(wakeDescriptor, &one, sizeof one);
        return;
    }
    std::signal(number, SIG_DFL);
    std::raise(number); // as soon as this handler has returned
}

} // namespace

EndSignals::EndSignals()
    : wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      notifier_(wake_.get(), QSocketNotifier::Read) {
    wakeDescriptor = wake_.get();
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] {
        notifier_.setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    for (const int number : {SIGINT, SIGTERM})
        ::sigaddset(&action.sa_mask, number);
    for (const int number : {SIGINT, SIGTERM})
        ::sigaction(number, &action, nullptr);
}

EndSignals::~EndSignals() {
    for (const int number : {SIGINT, SIGTERM})
        std::signal(number, SIG_DFL);
}

} // namespace brimlow::platform
