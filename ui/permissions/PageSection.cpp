#include "ui/permissions/PageSection.h"

#include "ui/controls/Badge.h"
#include "ui/controls/Caption.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/style/Role.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace brimlow {

using controls::Caption;
using controls::FlowLayout;
using controls::SymbolLabel;
using style::Role;

namespace {

constexpr int symbolSize = 22;
constexpr int symbolGap = 10;
constexpr int headingSymbolSize = 16;
constexpr int rowGap = 4;
constexpr int buttonGap = 6; // in addition

} // namespace

PageSection::PageSection(const QString& symbol, style::Tone tone, const QString& heading,
                         const QString& text, QWidget* parent)
    : QWidget(parent), symbol_(new SymbolLabel(symbol, symbolSize, tone)),
      headingLine_(new QHBoxLayout), buttons_(new FlowLayout) {
    auto* title = new QLabel(heading);
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    style::setRole(title, Role::heading);
    headingLine_->setSpacing(buttonGap);
    headingLine_->addWidget(title, 1);
    buttons_->setContentsMargins(0, buttonGap, 0, 0);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(symbolGap);
    grid->setVerticalSpacing(rowGap);
    grid->setColumnStretch(1, 1);
    grid->addWidget(symbol_, 0, 0, Qt::AlignTop);
    grid->addLayout(headingLine_, 0, 1);
    grid->addWidget(new Caption(text), 1, 1);
    grid->addLayout(buttons_, 2, 1);
    setAccessibleName(heading);
    setAccessibleDescription(text);
}

void PageSection::addHeadingSymbol(const QString& symbol, style::Tone tone) {
    headingLine_->insertWidget(0, new SymbolLabel(symbol, headingSymbolSize, tone));
}

void PageSection::addBadge(controls::Badge* badge) {
    headingLine_->addWidget(badge);
}

void PageSection::addButton(QPushButton* button) {
    buttons_->addWidget(button);
}

} // namespace brimlow
