#include "ui/permissions/PermissionsStatusView.h"

#include "platform/Accessibility.h"
#include "platform/NSBundle.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"
#include "ui/controls/Badge.h"
#include "ui/controls/Banner.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/Card.h"
#include "ui/controls/ScrollPage.h"
#include "ui/controls/Sheet.h"
#include "ui/permissions/GrantActions.h"
#include "ui/permissions/PermissionRow.h"
#include "ui/style/Role.h"

#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Badge;
using controls::Banner;
using controls::Caption;
using controls::Card;
using platform::CGPreflightScreenCaptureAccess;
using platform::NSWorkspace;
using platform::Platform;
using style::Role;
using style::Theme;

namespace {

// In seconds.
constexpr double paneDelay = 0.3;    // the system's own prompt comes first
constexpr double recheckDelay = 1.0; // after that
constexpr double terminateDelay = 0.5;

constexpr int spacing = 12;
constexpr int widerSpacing = 4; // in addition, between what is not of a kind

const QString securityPane =
    QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_");

QWidget* inCard(QWidget* row) {
    auto* card = new Card;
    card->add(row);
    return card;
}

QLayout* makeTitle() {
    auto* title = new QVBoxLayout;
    title->setSpacing(4);
    auto* heading = new QLabel(u"Permissions"_s);
    style::setRole(heading, Role::pageHeading);
    title->addWidget(heading);
    title->addWidget(new Caption(
        u"Brimlow needs these permissions to detect taps, focus windows, and run system actions. "
        u"Each permission must be granted once in System Settings."_s));
    return title;
}

QWidget* makeDivider() {
    auto* divider = new QFrame;
    style::setRole(divider, Role::divider);
    divider->setFixedHeight(1);
    return divider;
}

QWidget* makeShortcutRow() {
    auto* row = new PageSection(
        u"keyboard"_s, &Theme::secondaryText, u"Mission Control Shortcuts"_s,
        u"\"Move left/right a space\" must be enabled with Ctrl+← and Ctrl+→ for desktop-switch "
        u"actions to work."_s);
    row->addBadge(new Badge(u"System Setting"_s, Badge::Kind::grey));
    auto* open = controls::borderedButton(u"Open Keyboard Shortcuts"_s, u"arrow.up.right.square"_s);
    QObject::connect(open, &QPushButton::clicked, open, [] {
        NSWorkspace::openURL(
            u"x-apple.systempreferences:com.apple.preference.keyboard?Shortcuts"_s);
    });
    row->addButton(open);
    return inCard(row);
}

} // namespace

PermissionsStatusView::PermissionsStatusView(PermissionsManager& permissions,
                                             std::function<void()> terminate, QWidget* parent)
    : QWidget(parent), permissions_(permissions), terminate_(std::move(terminate)),
      screenRecordingGranted_(CGPreflightScreenCaptureAccess()),
      refresh_(Platform::current().mainQueue, [this] { showState(); }) {
    auto* page = new controls::ScrollPage(u"Permissions"_s);
    page->setColumn(makeColumn());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(page);
    refresh_.observe(permissions_);
    showState();
}

void PermissionsStatusView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        recheck();
}

void PermissionsStatusView::recheck() {
    screenRecordingGranted_ = CGPreflightScreenCaptureAccess();
    permissions_.checkAccessibility();
    permissions_.checkScreenRecording();
    stuck_ = permissions_.hasStuckPermissionState();
    showState();
}

void PermissionsStatusView::showState() {
    accessibility_->setGranted(permissions_.accessibilityGranted);
    screenRecording_->setGranted(screenRecordingGranted_);
    // Comes with a re-check, lest it push away what is being pressed; goes as soon as it can.
    stuckBanner_->setVisible(stuck_ && permissions_.hasStuckPermissionState());
}

QWidget* PermissionsStatusView::makeColumn() {
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    rows->setSpacing(spacing);
    rows->addLayout(makeTitle());
    stuckBanner_ = makeStuckBanner();
    rows->addWidget(stuckBanner_);
    accessibility_ = permissionRow(
        u"lock.shield"_s, u"Accessibility"_s,
        u"Required for every action. Lets Brimlow post keystrokes (Close Window, Mission Control) "
        u"and raise windows via the Accessibility API."_s,
        permissions_.accessibilityGranted, securityPane + u"Accessibility"_s,
        promptForAccessibility);
    rows->addWidget(inCard(accessibility_));
    rows->addWidget(inCard(permissionRow(
        u"bolt.horizontal"_s, u"Automation (System Events)"_s,
        u"Required for Switch Desktop Left/Right (Mission Control ignores synthetic keystrokes, so "
        u"we send via AppleScript). Also used as a fallback for Focus Specific Window. Click Grant "
        u"— macOS will prompt to allow Brimlow to control System Events; click Allow."_s,
        {}, securityPane + u"Automation"_s, resetAndPromptForAutomation)));
    screenRecording_ = permissionRow(
        u"rectangle.dashed.badge.record"_s, u"Screen Recording"_s,
        u"Required for the Focus Specific Window action. Lets Brimlow read window titles via "
        u"CGWindowList — used by the binding picker (to list the target app's windows) and at "
        u"runtime (to match the saved title substring). Not needed for the other actions."_s,
        screenRecordingGranted_, securityPane + u"ScreenCapture"_s, [this] {
            promptForScreenRecording(lifetime_.guard([this](bool granted) {
                screenRecordingGranted_ = granted;
                showState();
            }));
        });
    rows->addWidget(inCard(screenRecording_));
    rows->addWidget(makeShortcutRow());
    rows->addSpacing(widerSpacing);
    rows->addWidget(makeDivider());
    rows->addSpacing(widerSpacing);
    rows->addWidget(makeTroubleshooting());
    rows->addSpacing(widerSpacing);
    rows->addWidget(makeHelp());
    rows->addStretch();
    return column;
}

PermissionRow* PermissionsStatusView::permissionRow(const QString& icon, const QString& title,
                                                    const QString& description,
                                                    std::optional<bool> granted,
                                                    const QString& settingsURL,
                                                    const std::function<void()>& grantAction) {
    auto* row = new PermissionRow(icon, title, description, granted);
    connect(row, &PermissionRow::grantPressed, this,
            [this, settingsURL, grantAction] { grant(settingsURL, grantAction); });
    return row;
}

Banner* PermissionsStatusView::makeStuckBanner() {
    auto* banner = new Banner(
        u"Grant doesn't seem to be working"_s,
        u"You've clicked Grant a few times without Accessibility flipping on. This usually means "
        u"an earlier install left a stale entry in macOS's permission database. Reset and try "
        u"again — no admin password needed."_s);
    auto* reset = controls::prominentButton(u"Reset Permissions"_s, u"arrow.counterclockwise"_s);
    connect(reset, &QPushButton::clicked, this, &PermissionsStatusView::confirmReset);
    banner->addButton(reset);
    return banner;
}

QWidget* PermissionsStatusView::makeTroubleshooting() {
    auto* section = new PageSection(
        u"wrench.and.screwdriver"_s, &Theme::secondaryText, u"Troubleshooting"_s,
        u"If Brimlow doesn't appear in the lists above after clicking Grant, you may have a stale "
        u"entry from a previous install. Resetting wipes Brimlow's macOS permission entries — no "
        u"admin password needed — and quits the app so you can relaunch cleanly."_s);
    auto* reset = controls::borderedButton(u"Reset Permissions"_s, u"arrow.counterclockwise"_s);
    connect(reset, &QPushButton::clicked, this, &PermissionsStatusView::confirmReset);
    section->addButton(reset);
    constexpr int inset = Card::sidePadding + 1; // as if it had a card's padding and border
    section->layout()->setContentsMargins(inset, 0, inset, 0);
    return section;
}

QWidget* PermissionsStatusView::makeHelp() {
    auto* section = new PageSection(
        u"info.circle.fill"_s, &Theme::blue, u"If Brimlow doesn't appear in a Settings list…"_s,
        u"1. Click Grant + Open Settings on the row.\n"
        u"2. macOS will register Brimlow — it should appear in the list.\n"
        u"3. Toggle it ON.\n"
        u"4. Quit Brimlow (right-click Dock icon → Quit) and relaunch — Screen Recording in "
        u"particular requires this."_s);
    auto* again = controls::borderedButton(u"Re-check All"_s, u"arrow.clockwise"_s);
    connect(again, &QPushButton::clicked, this, &PermissionsStatusView::recheck);
    section->addButton(again);
    return inCard(section);
}

void PermissionsStatusView::grant(const QString& settingsURL,
                                  const std::function<void()>& grantAction) {
    permissions_.recordGrantAttempt();
    grantAction();
    auto& queue = Platform::current().mainQueue;
    queue.after(paneDelay, [&queue, settingsURL, again = lifetime_.guard([this] { recheck(); })] {
        NSWorkspace::openURL(settingsURL);
        queue.after(recheckDelay, again);
    });
}

void PermissionsStatusView::confirmReset() {
    if (std::exchange(confirmingReset_, true))
        return;
    auto* dialog = controls::confirmation(
        u"Reset all permissions for Brimlow?"_s,
        u"Brimlow's entries in Privacy & Security will be cleared and the app will quit. Reopen "
        u"it from /Applications and grant each permission fresh."_s,
        u"Reset & Relaunch"_s, this);
    connect(dialog, &QDialog::finished, this, [this](int result) {
        confirmingReset_ = false;
        if (result == QDialog::Accepted)
            runReset();
    });
    dialog->open();
}

void PermissionsStatusView::runReset() {
    if (permissions_.resetAllTCCForSelf())
        Platform::current().mainQueue.after(terminateDelay, terminate_);
    else
        tellResetFailed();
}

void PermissionsStatusView::tellResetFailed() {
    if (std::exchange(resetFailedAlert_, true))
        return;
    auto* dialog = controls::alert(u"Couldn't reset permissions"_s,
                                   u"Try running this manually in Terminal: tccutil reset All "_s
                                       + Platform::current().mainBundle.identifierOfPermissions(),
                                   this);
    connect(dialog, &QDialog::finished, this, [this] { resetFailedAlert_ = false; });
    dialog->open();
}

} // namespace brimlow
