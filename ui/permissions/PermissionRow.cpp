#include "ui/permissions/PermissionRow.h"

#include "platform/NSBundle.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"
#include "ui/controls/Badge.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/ElidedText.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/permissions/PermissionStatus.h"

#include <QPushButton>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Badge;
using platform::NSWorkspace;
using platform::Platform;
using style::Theme;

namespace {

/// The rows' buttons look alike; a screen reader says which row it is in.
void nameAfter(const QString& title, QPushButton* button) {
    button->setAccessibleName(button->text() + u": "_s + title);
}

QPushButton* makeReveal() {
    auto* reveal = controls::borderedButton(u"Reveal Brimlow.app"_s, u"magnifyingglass"_s);
    const QString help = u"If Brimlow doesn't appear in the Settings list automatically, drag it "
                         u"from the Finder window into the +."_s;
    reveal->setToolTip(controls::plainToolTip(help));
    reveal->setAccessibleDescription(help);
    QObject::connect(reveal, &QPushButton::clicked, reveal, [] {
        NSWorkspace::activateFileViewerSelecting(Platform::current().mainBundle.bundlePath());
    });
    return reveal;
}

} // namespace

PermissionRow::PermissionRow(const QString& icon, const QString& title, const QString& description,
                             Granted granted, QWidget* parent)
    : PageSection({}, &Theme::greySymbol, title, description, parent), title_(title),
      granted_(granted), badge_(new Badge({}, Badge::Kind::grey)) {
    addHeadingSymbol(icon, &Theme::secondaryText);
    addBadge(badge_);
    auto* grant = controls::prominentButton(u"Grant + Open Settings"_s, u"arrow.up.right.square"_s);
    connect(grant, &QPushButton::clicked, this, &PermissionRow::grantPressed);
    for (QPushButton* button : {grant, makeReveal()}) {
        nameAfter(title, button);
        addButton(button);
    }
    showGranted();
}

void PermissionRow::setGranted(Granted granted) {
    if (granted == std::exchange(granted_, granted))
        return;
    showGranted();
}

void PermissionRow::showGranted() {
    const PermissionStatus status = permissionStatus(granted_, u"Not Granted"_s);
    symbol().set(status.symbol, status.tone);
    badge_->set(status.text, status.kind);
    setAccessibleName(title_ + u": "_s + status.text);
}

} // namespace brimlow
