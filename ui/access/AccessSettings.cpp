#include "ui/access/AccessSettings.h"

#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Session.h"
#include "ui/access/AccessWindow.h"
#include "ui/access/KeyboardSettings.h"

#include <QGuiApplication>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::Platform;
using platform::SettingsPane;

namespace {

QString serviceOf(SettingsPane pane) {
    switch (pane) {
    case SettingsPane::screenRecording:
        return u"ScreenCapture"_s;
    case SettingsPane::automation:
        return u"AppleEvents"_s;
    case SettingsPane::accessibility:
    case SettingsPane::keyboardShortcuts:
        break;
    }
    return u"Accessibility"_s;
}

/// Names what is missing, so that something new is no old story.
QString presentProblems() {
    QString problems;
    for (const AccessProblem& problem : accessReport().problems)
        problems += problem.heading + u'\n' + problem.text + u'\n';
    return problems;
}

} // namespace

AccessSettings::AccessSettings(platform::RuleInstaller& installer, platform::ConsentRecords records)
    : installer_(installer), records_(std::move(records)) {}

AccessSettings::~AccessSettings() = default;

AccessWindow& AccessSettings::makeWindow() {
    if (!window_) {
        window_ = std::make_unique<AccessWindow>();
        QObject::connect(window_.get(), &AccessWindow::allowRequested, window_.get(),
                         [this] { allow(); });
        QObject::connect(window_.get(), &AccessWindow::closedByUser, window_.get(),
                         [this] { remember(); });
    }
    return *window_;
}

void AccessSettings::open(SettingsPane pane) {
    if (pane == SettingsPane::keyboardShortcuts && openKeyboardSettings())
        return;
    AccessWindow& window = makeWindow();
    prompted_.reset();
    window.setAttribute(Qt::WA_ShowWithoutActivating, false);
    window.show();
    window.showPane(pane);
    window.raise();
    window.activateWindow();
}

void AccessSettings::prompt(SettingsPane pane) {
    if (window_ && window_->isVisible()) {
        window_->refresh();
        return;
    }
    const bool inOurWindow = QGuiApplication::applicationState() == Qt::ApplicationActive;
    if (!inOurWindow
        && records_.isDeclined(serviceOf(pane), presentProblems(),
                               Platform::current().clock.wallClock()))
        return;
    AccessWindow& window = makeWindow();
    prompted_ = pane;
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    window.showPane(pane);
}

void AccessSettings::remember() {
    if (const auto pane = std::exchange(prompted_, std::nullopt))
        records_.decline(serviceOf(*pane), presentProblems(),
                         Platform::current().clock.wallClock());
}

bool AccessSettings::openKeyboardSettings() {
    auto& platform = Platform::current();
    const QString identifier =
        keyboardSettingsOf(qEnvironmentVariable("XDG_CURRENT_DESKTOP"), platform.applications);
    return !identifier.isEmpty()
           && platform.applications.launch(identifier, platform.session.startup()).done;
}

void AccessSettings::allow() {
    window_->setAllowing();
    installer_.install(
        [this](const platform::Outcome& outcome) { window_->setAllowed(outcome.reason); });
}

} // namespace brimlow
