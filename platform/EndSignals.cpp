#include "platform/EndSignals.h"

#include <QCoreApplication>

#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>

namespace brimlow::platform {

namespace {

int wakeDescriptor = -1; // for the handler, which can reach nothing else

void wake(int) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(wakeDescriptor, &one, sizeof one);
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
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int number : {SIGINT, SIGTERM})
        ::sigaction(number, &action, nullptr);
}

EndSignals::~EndSignals() {
    for (const int number : {SIGINT, SIGTERM})
        std::signal(number, SIG_DFL);
}

} // namespace brimlow::platform
