#include "ui/general/GeneralSettingsView.h"

#include "platform/Platform.h"
#include "ui/controls/Card.h"
#include "ui/controls/ScrollPage.h"
#include "ui/controls/ToggleRow.h"
#include "ui/general/PalmRejectionSection.h"
#include "ui/style/Role.h"

#include <QLabel>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::ToggleRow;

namespace {

QWidget* cardOf(QWidget* row) {
    auto* card = new controls::Card;
    card->add(row);
    return card;
}

} // namespace

GeneralSettingsView::GeneralSettingsView(AppSettings& settings, AppCoordinator& coordinator,
                                         QWidget* parent)
    : QWidget(parent), settings_(settings), coordinator_(coordinator),
      tapEnabled_(new ToggleRow(u"Enable Tap Detection"_s)), palms_(new PalmRejectionSection),
      onboarding_(new ToggleRow(u"Mark onboarding as complete"_s)),
      changes_(platform::Platform::current().mainQueue, [this] { showSettings(); }) {
    connect(tapEnabled_, &ToggleRow::chosen, this,
            [this](bool on) { settings_.setTapEnabled(on); });
    connect(palms_, &PalmRejectionSection::palmRejectionChosen, this,
            [this](bool on) { settings_.setPalmRejection(on); });
    connect(palms_, &PalmRejectionSection::maxAxisChosen, this,
            [this](double maxAxis) { settings_.setPalmRejectionMaxAxis(maxAxis); });
    connect(onboarding_, &ToggleRow::chosen, this,
            [this](bool on) { settings_.setHasCompletedOnboarding(on); });
    auto* page = new controls::ScrollPage(u"General"_s);
    page->setColumn(makeColumn());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(page);
    showSettings();
    changes_.observe(settings_);
    changes_.observe(coordinator_);
}

QWidget* GeneralSettingsView::makeColumn() {
    auto* heading = new QLabel(u"General Settings"_s);
    style::setRole(heading, style::Role::pageHeading);
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    rows->setSpacing(20);
    auto* top = new QVBoxLayout;
    top->setSpacing(12);
    top->addWidget(heading);
    top->addWidget(cardOf(tapEnabled_));
    rows->addLayout(top);
    rows->addWidget(palms_);
    rows->addWidget(cardOf(onboarding_));
    rows->addStretch();
    return column;
}

void GeneralSettingsView::showSettings() {
    tapEnabled_->setOn(settings_.tapEnabled());
    palms_->show(settings_.palmRejection(), settings_.palmRejectionMaxAxis(), coordinator_.lastTap);
    onboarding_->setOn(settings_.hasCompletedOnboarding());
}

} // namespace brimlow
