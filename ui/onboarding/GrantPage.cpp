#include "ui/onboarding/GrantPage.h"

#include "permissions/PermissionsManager.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/Card.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/onboarding/GrantRow.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using controls::SymbolLabel;
using style::Role;
using style::Theme;

namespace {

constexpr int headerSymbolSize = 36;
constexpr int headerSymbolGap = 14;
constexpr int noteSymbolSize = 14;
constexpr int noteSymbolGap = 6;
constexpr int rowSpacing = 10;
constexpr int spacing = 16; // between what is not of a kind

const QString heading = QStringLiteral("Grant Permissions");
const QString securityPane =
    QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_");

QLayout* makeHeader() {
    auto* title = new QLabel(heading);
    style::setRole(title, Role::pageHeading);
    auto* words = new QVBoxLayout;
    words->setSpacing(6);
    words->addWidget(title);
    words->addWidget(new Caption(
        u"macOS doesn't let any app grant itself permissions. Click each Grant button — Brimlow "
        u"will register itself in the Settings list, then a Settings pane opens for you to flip "
        u"the toggle."_s));
    auto* header = new QHBoxLayout;
    header->setSpacing(headerSymbolGap);
    header->addWidget(new SymbolLabel(u"lock.shield"_s, headerSymbolSize, &Theme::blue), 0,
                      Qt::AlignTop);
    header->addLayout(words, 1);
    return header;
}

QLayout* makeNote() {
    // As far apart as a Caption's lines.
    auto* words = new QLabel(u"<p style=\"line-height: 110%\">If Brimlow doesn't appear in a "
                             u"Settings list, click Reveal and drag the app into the <b>+</b> "
                             u"button.</p>"_s);
    words->setTextFormat(Qt::RichText);
    words->setWordWrap(true);
    style::setRole(words, Role::caption);
    auto* note = new QHBoxLayout;
    note->setSpacing(noteSymbolGap);
    note->addWidget(new SymbolLabel(u"info.circle"_s, noteSymbolSize, &Theme::secondaryText), 0,
                    Qt::AlignTop);
    note->addWidget(words, 1);
    return note;
}

GrantRow* addRow(QVBoxLayout* rows, const GrantRow::Texts& texts) {
    auto* row = new GrantRow(texts);
    auto* card = new controls::Card;
    card->add(row);
    rows->addWidget(card);
    return row;
}

} // namespace

GrantPage::GrantPage(PermissionsManager& permissions, QWidget* parent)
    : QWidget(parent), permissions_(permissions) {
    setAccessibleName(heading);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(rowSpacing);
    accessibility_ = addRow(
        rows, {.icon = u"accessibility"_s,
               .color = &Theme::orangeSymbol,
               .title = u"Accessibility"_s,
               .tag = u"Required"_s,
               .description = u"Lets Brimlow post keystrokes and raise windows. Without this, no "
                              u"action will fire."_s});
    auto* automation = addRow(
        rows, {.icon = u"bolt.horizontal"_s,
               .color = &Theme::purpleSymbol,
               .title = u"Automation (System Events)"_s,
               .tag = u"Required for desktop-switch"_s,
               .description =
                   u"Mission Control ignores synthetic keystrokes, so Brimlow sends 'Switch "
                   u"Desktop Left/Right' via AppleScript. Without this, those two actions silently "
                   u"no-op. Also used as a fallback for Focus Specific Window."_s});
    screenRecording_ = addRow(
        rows, {.icon = u"rectangle.dashed.badge.record"_s,
               .color = &Theme::blue,
               .title = u"Screen Recording"_s,
               .tag = u"Required for Focus Window"_s,
               .description =
                   u"Lets Brimlow read window titles from CGWindowList — used by the binding "
                   u"picker (to list windows of the target app) and at runtime (to find the right "
                   u"window by title). Only needed if you bind the Focus Specific Window "
                   u"action."_s});
    connect(accessibility_, &GrantRow::grantPressed, this, &GrantPage::grantAccessibility);
    connect(automation, &GrantRow::grantPressed, this, &GrantPage::grantAutomation);
    connect(screenRecording_, &GrantRow::grantPressed, this, &GrantPage::grantScreenRecording);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins({});
    page->setSpacing(spacing);
    page->addLayout(makeHeader());
    page->addLayout(rows);
    auto* help = new QVBoxLayout;
    help->setSpacing(rowSpacing);
    help->addLayout(makeNote());
    help->addLayout(makeButtons());
    page->addLayout(help);
    page->addStretch();
}

QLayout* GrantPage::makeButtons() {
    auto* reveal = controls::borderedButton(u"Reveal in Finder"_s, u"magnifyingglass"_s);
    connect(reveal, &QPushButton::clicked, this, [this] { permissions_.revealAppInFinder(); });
    auto* recheck = controls::borderedButton(u"Re-check Permissions"_s, u"arrow.clockwise"_s);
    connect(recheck, &QPushButton::clicked, this, &GrantPage::recheckRequested);
    auto* buttons = new controls::FlowLayout;
    buttons->addWidget(reveal);
    buttons->addWidget(recheck);
    return buttons;
}

void GrantPage::showState() {
    accessibility_->setGranted(permissions_.accessibilityGranted);
    screenRecording_->setGranted(permissions_.screenRecordingGranted);
}

// A request changes what decides whether the pane opens, so that is read first.

void GrantPage::grantAccessibility() {
    const bool opensPane =
        permissions_.accessibilityGranted || permissions_.hasPromptedAccessibility;
    permissions_.requestAccessibility();
    if (opensPane)
        permissions_.open(securityPane + u"Accessibility"_s);
}

void GrantPage::grantAutomation() {
    const bool opensPane = permissions_.hasPromptedAppleEvents;
    permissions_.requestAppleEvents();
    if (opensPane)
        permissions_.open(securityPane + u"Automation"_s);
}

void GrantPage::grantScreenRecording() {
    const bool opensPane =
        permissions_.screenRecordingGranted || permissions_.hasPromptedScreenRecording;
    permissions_.requestScreenRecording();
    if (opensPane)
        permissions_.open(securityPane + u"ScreenCapture"_s);
}

} // namespace brimlow
