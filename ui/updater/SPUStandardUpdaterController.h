#pragma once

#include "ui/updater/SPUUpdater.h"

#include <memory>

namespace brimlow {

namespace platform {
class NSBundle;
}

/// Holds the updater, for as long as the program runs. Main thread.
class SPUStandardUpdaterController {
public:
    /// For what the bundle names as its feed and its version. An updater that is not started here
    /// waits for its startUpdater().
    static std::unique_ptr<SPUStandardUpdaterController>
    initWithStartingUpdater(bool startingUpdater, const platform::NSBundle& mainBundle);

    SPUUpdater& updater() { return updater_; }

private:
    explicit SPUStandardUpdaterController(const platform::NSBundle& mainBundle);

    SPUUpdater updater_;
};

/// Null where packaging names no feed at an address of https.
std::unique_ptr<SPUStandardUpdaterController>
makeUpdaterControllerIfEligible(const platform::NSBundle& mainBundle);

} // namespace brimlow
