#include "ui/BrimlowApp.h"

#include "platform/MainQueue.h"
#include "platform/NSBundle.h"
#include "platform/Platform.h"
#include "platform/SpareMemory.h"
#include "ui/MainWindowView.h"
#include "ui/shell/Windows.h"
#include "ui/style/ApplicationStyle.h"

#include <QApplication>
#include <QShortcut>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::Platform;

namespace {

constexpr QSize smallest{600, 400};
constexpr QSize usual{760, 560};
constexpr double settling = 1.0; // seconds until a start or the end of a window is over

void quit() {
    QCoreApplication::quit();
}

} // namespace

BrimlowApp::BrimlowApp(FileDialogs& fileDialogs)
    : fileDialogs_(fileDialogs),
      updaterController_(makeUpdaterControllerIfEligible(Platform::current().mainBundle)),
      tray_(QDBusConnection::sessionBus()),
      trayChanges_(Platform::current().mainQueue, [this] { updateTray(); }) {
    QObject::connect(&tray_, &TrayIcon::activated, &tray_, [this] { openMainWindow(); });
}

BrimlowApp::~BrimlowApp() {
    delete mainWindow_;
}

void BrimlowApp::launch(Launch launch) {
    appDelegate_.applicationWillFinishLaunching();
    if (launch == Launch::byUser)
        openMainWindow();
    if (launch != Launch::withoutDisplay)
        appDelegate_.applicationDidFinishLaunching();
    if (QWidget* onboarding = appDelegate_.onboardingWindow())
        QObject::connect(onboarding, &QObject::destroyed, &tray_, [this] { saveMemorySoon(); });
    appliedTapEnabled_ = settings_.tapEnabled();
    coordinator_.start();
    hasLaunched_ = true;
    settingsChanges_ = settings_.observeWillChange([this] { settingsWillChange(); });
    trayChanges_.observe(settings_);
    trayChanges_.observe(coordinator_.positionMappings);
    updateTray();
    saveMemorySoon();
}

void BrimlowApp::reopen() {
    if (QWidget* onboarding = appDelegate_.onboardingWindow())
        bringToFront(*onboarding);
    else
        openMainWindow();
}

void BrimlowApp::settingsWillChange() {
    Platform::current().mainQueue.async(lifetime_.guard([this] {
        if (appliedTapEnabled_ == settings_.tapEnabled())
            return;
        appliedTapEnabled_ = settings_.tapEnabled();
        coordinator_.applyEnabledState();
    }));
}

void BrimlowApp::openMainWindow() {
    const bool appears = !mainWindow_;
    if (appears)
        makeMainWindow();
    bringToFront(*mainWindow_);
    if (appears && hasLaunched_)
        coordinator_.start(); // looks again for what was not there
}

void BrimlowApp::makeMainWindow() {
    mainWindow_ = new MainWindowView({.settings = settings_,
                                      .permissions = permissionsManager_,
                                      .coordinator = coordinator_,
                                      .fileDialogs = fileDialogs_,
                                      .terminate = quit});
    mainWindow_->setAttribute(Qt::WA_DeleteOnClose); // its memory goes with it
    QObject::connect(mainWindow_, &QObject::destroyed, &tray_, [this] { saveMemorySoon(); });
    mainWindow_->setObjectName(u"main-window"_s);
    mainWindow_->setWindowTitle(u"Brimlow"_s);
    fitToText(*mainWindow_, smallest, usual);
    for (const QChar key : {u'O', u'1', u'2', u'3', u'Q'})
        QObject::connect(new QShortcut(Qt::CTRL | Qt::Key(key.unicode()), mainWindow_),
                         &QShortcut::activated, mainWindow_, [this, key] { press(key); });
    QObject::connect(new QShortcut(QKeySequence(QKeySequence::Close), mainWindow_),
                     &QShortcut::activated, mainWindow_, &QWidget::close);
}

std::vector<MenuItem> BrimlowApp::menu() {
    MenuActions actions{
        .showBrimlow = [this] { openMainWindow(); }, .checkForUpdates = {}, .quit = quit};
    if (updaterController_)
        actions.checkForUpdates = [this] { updaterController_->updater().checkForUpdates(); };
    return brimlowMenu(settings_, coordinator_.positionMappings, actions);
}

void BrimlowApp::press(QChar keyEquivalent) {
    for (const MenuItem& item : menu())
        if (item.keyEquivalent == keyEquivalent)
            return item.action();
}

void BrimlowApp::saveMemorySoon() {
    Platform::current().mainQueue.after(settling, lifetime_.guard([] {
        if (std::ranges::any_of(QApplication::topLevelWidgets(), &QWidget::isVisible))
            return;
        style::forgetGoneWidgets();
        platform::returnSpareMemory();
    }));
}

void BrimlowApp::updateTray() {
    tray_.setItems(menu());
    tray_.setOn(settings_.tapEnabled());
}

} // namespace brimlow
