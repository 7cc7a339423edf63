#include "ui/controls/Card.h"

#include "ui/style/Role.h"

#include <QBoxLayout>
#include <QLabel>

namespace brimlow::controls {

Card::Card(QWidget* parent) : QFrame(parent), rows_(new QVBoxLayout(this)) {
    style::setRole(this, style::Role::card);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
}

void Card::add(QWidget* row) {
    padded(rows_)->addWidget(row);
}

void Card::add(QLayout* row) {
    padded(rows_)->addLayout(row);
}

void Card::addFlush(QWidget* row) {
    rows_->addWidget(row);
}

void Card::addDivider(int indent) {
    addDivider(rows_, indent);
}

QWidget* Card::addPart(QLayout* row) {
    auto* part = new QWidget;
    auto* rows = new QVBoxLayout(part);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    addDivider(rows, 0);
    padded(rows)->addLayout(row);
    rows_->addWidget(part);
    return part;
}

void Card::addDivider(QBoxLayout* rows, int indent) {
    auto* line = new QFrame;
    style::setRole(line, style::Role::divider);
    line->setFixedHeight(1);
    auto* inset = new QHBoxLayout;
    inset->setContentsMargins(indent, 0, indent > 0 ? sidePadding : 0, 0);
    inset->addWidget(line);
    rows->addLayout(inset);
}

QBoxLayout* Card::padded(QBoxLayout* rows) {
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(sidePadding, padding, sidePadding, padding);
    rows->addLayout(layout);
    return layout;
}

Section::Section(const QString& title, QWidget* trailing, QWidget* parent)
    : QWidget(parent), card_(new Card) {
    setAccessibleName(title);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(headingLine(title, trailing));
    layout->addWidget(card_);
}

QLayout* headingLine(const QString& title, QWidget* trailing) {
    auto* heading = new QLabel(title);
    heading->setTextFormat(Qt::PlainText);
    style::setRole(heading, style::Role::heading);
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(heading, 1);
    if (trailing)
        line->addWidget(trailing);
    return line;
}

} // namespace brimlow::controls
