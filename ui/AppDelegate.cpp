#include "ui/AppDelegate.h"

#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"
#include "platform/Accessibility.h"
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "ui/controls/Sheet.h"
#include "ui/onboarding/OnboardingView.h"
#include "ui/shell/Windows.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include <cstdlib>
#include <utility>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::Platform;

namespace {

constexpr QSize usual{640, 720};
constexpr QSize smallest{540, 560};

/// Tells when the user has closed it.
class OnboardingWindow final : public QWidget {
public:
    explicit OnboardingWindow(std::function<void()> closed) : closed_(std::move(closed)) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        QWidget::closeEvent(event);
        closed_();
    }

private:
    std::function<void()> closed_;
};

} // namespace

AppDelegate::AppDelegate() = default;
AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationWillFinishLaunching() {
    enforceInstallLocation();
}

void AppDelegate::applicationDidFinishLaunching() {
    if (!Platform::current().standardUserDefaults.boolForKey(u"hasCompletedOnboarding"_s))
        showOnboarding();
    else if (!platform::AXIsProcessTrusted())
        platform::AXIsProcessTrustedWithOptions(platform::AXTrustedCheckOptionPrompt::yes);
}

void AppDelegate::showOnboarding() {
    onboardingWindow_.reset();
    onboardingSettings_ = std::make_unique<AppSettings>();
    onboardingPermissions_ = std::make_unique<PermissionsManager>();
    onboardingPermissions_->startPolling();
    onboardingWindow_ = std::make_unique<OnboardingWindow>([this] { closeOnboarding(); });
    onboardingWindow_->setWindowTitle(u"Welcome to Brimlow"_s);
    auto* rows = new QVBoxLayout(onboardingWindow_.get());
    rows->setContentsMargins({});
    rows->addWidget(new OnboardingView(*onboardingSettings_, *onboardingPermissions_,
                                       [this] { closeOnboarding(); }));
    fitToText(*onboardingWindow_, smallest, usual);
    centre(*onboardingWindow_);
    bringToFront(*onboardingWindow_);
}

void AppDelegate::closeOnboarding() {
    if (!onboardingPermissions_)
        return;
    onboardingPermissions_->stopPolling();
    onboardingWindow_->hide();
    // Later, because it is the window itself that calls.
    Platform::current().mainQueue.async(lifetime_.guard([this] {
        onboardingWindow_.reset();
        onboardingSettings_.reset();
        onboardingPermissions_.reset();
    }));
}

void AppDelegate::enforceInstallLocation() {
    if (!Platform::current().mainBundle.bundlePath().startsWith(u"/Volumes/"))
        return;
    auto* alert = controls::alert(
        u"Move Brimlow to Applications"_s,
        u"Brimlow is currently running from a disk image and can't request macOS permissions from "
        u"there.\n\n1. Drag Brimlow onto the Applications shortcut in this window.\n2. Eject the "
        u"disk image.\n3. Open Brimlow from your Applications folder."_s,
        nullptr, u"Quit"_s);
    alert->exec();
    std::exit(0);
}

} // namespace brimlow
