#pragma once

#include "engine/AppCoordinator.h"
#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"

#include <memory>

namespace brimlow {

class FileDialogs;
class MainWindowView;

/// The program on the current platform: its long-lived objects, made in this order and kept for the
/// life of the process. Main thread.
class BrimlowApp {
public:
    /// `fileDialogs` outlives it.
    explicit BrimlowApp(FileDialogs& fileDialogs);
    ~BrimlowApp();

    /// Brings the engine up; from then on a change of the switch is applied on the next turn. Where
    /// no trackpad can be read the user is asked for it now.
    void start();

    /// Shows the main window and brings it to the front.
    void openMainWindow();

private:
    void settingsWillChange();
    void makeMainWindow();

    FileDialogs& fileDialogs_;
    AppSettings settings_;
    PermissionsManager permissionsManager_;
    AppCoordinator coordinator_{settings_, permissionsManager_, 10};
    bool appliedTapEnabled_ = true;
    platform::Subscription settingsChanges_;
    std::unique_ptr<MainWindowView> mainWindow_; // null as long as it was not wanted
    platform::Lifetime lifetime_;
};

} // namespace brimlow
