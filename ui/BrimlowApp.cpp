#include "ui/BrimlowApp.h"

#include "platform/InputDevices.h"
#include "platform/Platform.h"
#include "platform/SystemSettings.h"
#include "ui/MainWindowView.h"
#include "ui/style/ApplicationStyle.h"

#include <QCoreApplication>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usual{760, 560};

/// Whether there are trackpads and none can be read: then no tap ever brings the question up.
bool noTapCanAsk() {
    const auto trackpads = platform::Platform::current().inputDevices.trackpads();
    return !trackpads.empty()
           && std::ranges::none_of(trackpads, &QString::isEmpty, &platform::Trackpad::complaint);
}

} // namespace

BrimlowApp::BrimlowApp(FileDialogs& fileDialogs) : fileDialogs_(fileDialogs) {}

BrimlowApp::~BrimlowApp() = default;

void BrimlowApp::start() {
    appliedTapEnabled_ = settings_.tapEnabled();
    coordinator_.start();
    settingsChanges_ = settings_.observeWillChange([this] { settingsWillChange(); });
    if (noTapCanAsk())
        platform::Platform::current().systemSettings.prompt(platform::SettingsPane::accessibility);
}

void BrimlowApp::openMainWindow() {
    if (!mainWindow_)
        makeMainWindow();
    mainWindow_->show();
    mainWindow_->raise();
    mainWindow_->activateWindow();
}

void BrimlowApp::makeMainWindow() {
    mainWindow_ = std::make_unique<MainWindowView>(
        MainWindowView::Environment{.settings = settings_,
                                    .permissions = permissionsManager_,
                                    .coordinator = coordinator_,
                                    .fileDialogs = fileDialogs_,
                                    .terminate = [] { QCoreApplication::quit(); }});
    mainWindow_->setObjectName(u"main-window"_s);
    mainWindow_->setWindowTitle(u"Brimlow"_s);
    const auto& type = style::currentType();
    mainWindow_->resize(type.scaled(usual.width()), type.scaled(usual.height()));
}

void BrimlowApp::settingsWillChange() {
    platform::Platform::current().mainQueue.async(lifetime_.guard([this] {
        if (appliedTapEnabled_ == settings_.tapEnabled())
            return;
        appliedTapEnabled_ = settings_.tapEnabled();
        coordinator_.applyEnabledState();
    }));
}

} // namespace brimlow
