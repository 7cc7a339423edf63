#pragma once

#include "engine/AppCoordinator.h"
#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"
#include "ui/AppDelegate.h"
#include "ui/Refresh.h"
#include "ui/shell/BrimlowMenu.h"
#include "ui/shell/TrayIcon.h"
#include "ui/updater/SPUStandardUpdaterController.h"

#include <QPointer>

namespace brimlow {

class FileDialogs;
class MainWindowView;

/// The program on the current platform: its long-lived objects, its main window and its menu. Main
/// thread.
class BrimlowApp {
public:
    enum class Launch { byUser, atLogin, withoutDisplay };

    /// `fileDialogs` outlives it.
    explicit BrimlowApp(FileDialogs& fileDialogs);
    ~BrimlowApp();

    /// Brings the engine up, which then runs until the end, whatever windows are open. At login no
    /// window is shown that has nothing to ask.
    void launch(Launch launch);
    /// The user has started the application once more.
    void reopen();
    /// Shows the main window and brings it to the front.
    void openMainWindow();

private:
    void settingsWillChange();
    void makeMainWindow();
    std::vector<MenuItem> menu();
    void press(QChar keyEquivalent);
    /// Once no window is open, what only starting or a window needed is given back.
    void saveMemorySoon();
    void updateTray();

    FileDialogs& fileDialogs_;
    AppDelegate appDelegate_;
    std::unique_ptr<SPUStandardUpdaterController> updaterController_; // null: there are no updates
    AppSettings settings_;
    PermissionsManager permissionsManager_;
    AppCoordinator coordinator_{settings_, permissionsManager_, 10};
    bool hasLaunched_ = false;
    bool appliedTapEnabled_ = true;
    QPointer<MainWindowView> mainWindow_; // null while it is closed
    TrayIcon tray_;
    Refresh trayChanges_;
    platform::Subscription settingsChanges_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
