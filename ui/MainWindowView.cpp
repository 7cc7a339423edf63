#include "ui/MainWindowView.h"

#include "ui/controls/Buttons.h"
#include "ui/general/GeneralSettingsView.h"
#include "ui/permissions/PermissionsStatusView.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Role.h"
#include "ui/tap/TapSettingsView.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace brimlow {

using namespace Qt::StringLiterals;
using Section = MainWindowView::NavigationSection;

namespace {

constexpr int sidebarWidth = 180;
constexpr QSize smallest{600, 400};

struct Entry {
    Section section;
    QString label;
    QString symbol;
};

std::vector<Entry> entries() {
    return {{Section::general, u"General"_s, u"gear"_s},
            {Section::tap, u"Tap"_s, u"hand.tap.fill"_s},
            {Section::permissions, u"Permissions"_s, u"lock.fill"_s}};
}

} // namespace

MainWindowView::MainWindowView(Environment environment, QWidget* parent)
    : QWidget(parent), environment_(std::move(environment)), columns_(new QHBoxLayout(this)),
      sidebar_(makeSidebar()) {
    columns_->setContentsMargins({});
    columns_->setSpacing(0);
    columns_->addWidget(sidebar_);
    page_ = makePage(selectedSection_);
    columns_->addWidget(page_, 1);
    makeRoomForText();
}

void MainWindowView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::StyleChange)
        makeRoomForText();
    QWidget::changeEvent(event);
}

/// Sidebar and buttons grow with the desktop's text; the pages scroll, so the height need not.
void MainWindowView::makeRoomForText() {
    const auto& type = style::currentType();
    sidebar_->setFixedWidth(type.scaled(sidebarWidth));
    setMinimumSize(type.scaled(smallest.width()), smallest.height());
}

QWidget* MainWindowView::makeSidebar() {
    auto* sidebar = new QFrame;
    sidebar->setAccessibleName(u"Sections"_s);
    style::setRole(sidebar, style::Role::sidebar);
    auto* rows = new QVBoxLayout(sidebar);
    rows->setContentsMargins(8, 12, 8, 12);
    rows->setSpacing(2);
    for (const auto& [section, label, symbol] : entries()) {
        auto* row = controls::sidebarButton(label, symbol);
        row->setChecked(section == selectedSection_);
        connect(row, &QPushButton::toggled, this, [this, chosen = section](bool on) {
            if (on)
                select(chosen);
        });
        rows->addWidget(row);
    }
    rows->addStretch();
    return sidebar;
}

QWidget* MainWindowView::makePage(Section section) {
    switch (section) {
    case Section::general:
        return new GeneralSettingsView(environment_.settings, environment_.coordinator);
    case Section::tap:
        return new TapSettingsView(environment_.coordinator, environment_.fileDialogs);
    case Section::permissions:
        return new PermissionsStatusView(environment_.permissions, environment_.terminate);
    }
    return nullptr;
}

void MainWindowView::select(Section section) {
    if (section == selectedSection_)
        return;
    selectedSection_ = section;
    QWidget* page = makePage(section);
    delete columns_->replaceWidget(page_, page);
    page_->deleteLater(); // one of its buttons may be what brought us here
    page_ = page;
    page_->show();
}

} // namespace brimlow
