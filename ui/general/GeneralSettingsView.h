#pragma once

#include "engine/AppCoordinator.h"
#include "engine/AppSettings.h"
#include "ui/Refresh.h"

#include <QWidget>

namespace brimlow {

namespace controls {
class ToggleRow;
}
class PalmRejectionSection;

/// The page with the settings of the application: taps on and off, palms, the first-run guide.
/// Main thread.
class GeneralSettingsView : public QWidget {
public:
    /// Both outlive it.
    GeneralSettingsView(AppSettings& settings, AppCoordinator& coordinator,
                        QWidget* parent = nullptr);

private:
    QWidget* makeColumn();
    void showSettings();

    AppSettings& settings_;
    AppCoordinator& coordinator_;
    controls::ToggleRow* tapEnabled_;
    PalmRejectionSection* palms_;
    controls::ToggleRow* onboarding_;
    Refresh changes_;
};

} // namespace brimlow
