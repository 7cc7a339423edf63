#include "platform/Platform.h"

#include <QThreadPool>

#include <cstdlib>

namespace brimlow::platform {

namespace {
Platform* currentPlatform = nullptr;
}

Platform::Platform(const PlatformServices& services)
    : PlatformServices(services), previous_(currentPlatform) {
    currentPlatform = this;
}

Platform::~Platform() {
    QThreadPool::globalInstance()->waitForDone();
    currentPlatform = previous_;
}

Platform& Platform::current() {
    if (!currentPlatform)
        std::abort();
    return *currentPlatform;
}

} // namespace brimlow::platform
