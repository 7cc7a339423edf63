#include "ui/onboarding/SummaryPage.h"

#include "permissions/PermissionsManager.h"
#include "ui/controls/Caption.h"
#include "ui/controls/Card.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/permissions/PermissionStatus.h"

#include <QHBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using style::Role;
using style::Theme;

namespace {
constexpr int symbolSize = 16;
constexpr int symbolGap = 10;
constexpr int valueGap = 16;
constexpr int spacing = 8;
} // namespace

/// Whether something is as it should be, what it is called, and how it stands.
class SummaryRow : public controls::Card {
public:
    explicit SummaryRow(const QString& title)
        : title_(title), symbol_(new controls::SymbolLabel({}, symbolSize)),
          value_(new Caption({}, Role::secondaryBody)) {
        auto* heading = new QLabel(title);
        style::setRole(heading, Role::heading);
        value_->setAlignment(Qt::AlignRight);
        auto* line = new QHBoxLayout;
        line->setSpacing(0);
        line->addWidget(symbol_);
        line->addSpacing(symbolGap);
        line->addWidget(heading);
        line->addSpacing(valueGap);
        line->addWidget(value_, 1);
        add(line);
    }

    void set(bool good, const QString& value) {
        const PermissionStatus status = permissionStatus(good, {});
        symbol_->set(status.symbol, status.tone);
        value_->setText(value);
        setAccessibleName(title_ + u": "_s + value);
    }
    void setGranted(bool granted) {
        set(granted, permissionStatus(granted, u"Not granted"_s).text);
    }

private:
    QString title_;
    controls::SymbolLabel* symbol_;
    Caption* value_;
};

SummaryPage::SummaryPage(QWidget* parent)
    : CentredPage(
        u"checkmark.circle.fill"_s, &Theme::greenSymbol,
        {.title = u"All Set"_s, .sentence = u"Brimlow is ready"_s, .sentenceRole = Role::body},
        parent),
      accessibility_(addSummary(u"Accessibility"_s)),
      screenRecording_(addSummary(u"Screen Recording"_s)) {
    addSummary(u"Next step"_s)->set(true, u"Open the Tap tab and record a position"_s);
    addSpacing(spacing);
    auto* caption =
        new Caption(u"You can revisit any permission later from the Permissions tab."_s);
    caption->setAlignment(Qt::AlignHCenter);
    addRow(caption);
}

SummaryRow* SummaryPage::addSummary(const QString& title) {
    auto* row = new SummaryRow(title);
    addRow(row);
    addSpacing(spacing);
    return row;
}

void SummaryPage::show(const PermissionsManager& permissions) {
    accessibility_->setGranted(permissions.accessibilityGranted);
    screenRecording_->setGranted(permissions.screenRecordingGranted);
}

} // namespace brimlow
