#include "ui/onboarding/GrantRow.h"

#include "ui/controls/Badge.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/permissions/PermissionStatus.h"

#include <QPushButton>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Badge;

GrantRow::GrantRow(const Texts& texts, QWidget* parent)
    : PageSection({}, &style::Theme::greySymbol, texts.title, texts.description, parent),
      title_(texts.title), tag_(texts.tag), statusTag_(new Badge({}, Badge::Kind::grey)),
      grant_(controls::prominentButton({}, u"arrow.up.right.square"_s)) {
    addHeadingSymbol(texts.icon, texts.color);
    addBadge(statusTag_);
    addButton(grant_);
    connect(grant_, &QPushButton::clicked, this, &GrantRow::grantPressed);
    setGranted({});
}

void GrantRow::setGranted(std::optional<bool> granted) {
    const PermissionStatus status = permissionStatus(granted, tag_);
    symbol().set(status.symbol, status.tone);
    statusTag_->set(status.text, status.kind);
    setAccessibleName(title_ + u": "_s + status.text);
    grant_->setText(granted == true ? u"Re-open Settings"_s : u"Grant + Open Settings"_s);
    // The rows' buttons look alike; a screen reader says which row it is in.
    grant_->setAccessibleName(grant_->text() + u": "_s + title_);
}

} // namespace brimlow
