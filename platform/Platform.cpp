#include "platform/Platform.h"

#include <cstdlib>

namespace brimlow::platform {

namespace {
Platform* currentPlatform = nullptr;
}

Platform::Platform(Clock& theClock, MainQueue& theQueue, LogSink& theLog,
                   NSUserDefaults& theDefaults, NSBundle& theBundle, InputDevices& theDevices,
                   Applications& theApplications, Icons& theIcons, Session& theSession)
    : clock(theClock), mainQueue(theQueue), log(theLog), standardUserDefaults(theDefaults),
      mainBundle(theBundle), inputDevices(theDevices), applications(theApplications),
      icons(theIcons), session(theSession), previous_(currentPlatform) {
    currentPlatform = this;
}

Platform::~Platform() {
    currentPlatform = previous_;
}

Platform& Platform::current() {
    if (!currentPlatform)
        std::abort();
    return *currentPlatform;
}

} // namespace brimlow::platform
