#pragma once

#include "platform/Observable.h"

#include <memory>

class QWidget;

namespace brimlow {

class AppSettings;
class PermissionsManager;

/// What happens at a launch, beside the main window: where the program may run from, the first-run
/// guide, the question for Accessibility. Main thread.
class AppDelegate {
public:
    AppDelegate();
    ~AppDelegate();

    /// Before anything is shown. Ends the process where it runs from a disk image.
    void applicationWillFinishLaunching();
    void applicationDidFinishLaunching();

    /// With objects of its own, which go with it.
    void showOnboarding();
    /// Null while the guide is not open.
    QWidget* onboardingWindow() const { return onboardingWindow_.get(); }

private:
    static void enforceInstallLocation();
    void closeOnboarding();

    std::unique_ptr<AppSettings> onboardingSettings_;
    std::unique_ptr<PermissionsManager> onboardingPermissions_;
    std::unique_ptr<QWidget> onboardingWindow_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
