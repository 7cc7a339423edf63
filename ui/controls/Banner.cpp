#include "ui/controls/Banner.h"

#include "ui/controls/Caption.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/SymbolLabel.h"

#include <QBoxLayout>
#include <QPushButton>

namespace brimlow::controls {

using namespace Qt::StringLiterals;
using style::Role;

Banner::Banner(const QString& heading, const QString& text, QWidget* parent)
    : QFrame(parent), text_(new Caption({}, Role::noticeText)), buttons_(new FlowLayout),
      rows_(new QVBoxLayout) {
    style::setRole(this, Role::notice);
    rows_->setSpacing(4);
    if (!heading.isEmpty()) {
        auto* title = new QLabel(heading);
        title->setTextFormat(Qt::PlainText);
        style::setRole(title, Role::heading);
        rows_->addWidget(title);
    }
    rows_->addWidget(text_);
    rows_->addLayout(buttons_);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 12);
    layout->setSpacing(10);
    const int size = heading.isEmpty() ? 18 : 22;
    layout->addWidget(
        new SymbolLabel(u"exclamationmark.triangle.fill"_s, size, &style::Theme::orangeSymbol), 0,
        Qt::AlignTop);
    layout->addLayout(rows_, 1);
    setAccessibleName(heading.isEmpty() ? text : heading);
    setText(text);
}

void Banner::setText(const QString& text) {
    text_->setText(text);
    setAccessibleDescription(text);
}

void Banner::addButton(QPushButton* button) {
    buttons_->setContentsMargins(0, 6, 0, 0);
    buttons_->addWidget(button);
}

void Banner::add(QWidget* row) {
    rows_->addSpacing(6);
    rows_->addWidget(row);
}

} // namespace brimlow::controls
