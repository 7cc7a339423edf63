#include "ui/controls/Sheet.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Role.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow::controls {

using namespace Qt::StringLiterals;
using style::Role;

namespace {

constexpr int usualWidth = 360;
constexpr int padding = 20;
constexpr int spacing = 16;

} // namespace

Sheet::Sheet(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent), rows_(new QVBoxLayout), buttons_(new QHBoxLayout) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    setAccessibleDescription(text);
    setFixedWidth(style::currentType().scaled(usualWidth));

    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(new Caption(title, Role::sheetTitle));
    if (!text.isEmpty())
        words->addWidget(new Caption(text));
    rows_->setSpacing(spacing);
    rows_->addLayout(words);
    buttons_->setSpacing(8);
    buttons_->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addLayout(rows_);
    layout->addLayout(buttons_);
}

QSize Sheet::sizeHint() const {
    return {width(), heightForWidth(width())};
}

void Sheet::add(QWidget* row) {
    rows_->addWidget(row);
}

QPushButton* Sheet::addCancel() {
    auto* button = borderedButton(u"Cancel"_s);
    connect(button, &QPushButton::clicked, this, &QDialog::reject);
    buttons_->addWidget(button);
    return button;
}

void Sheet::addConfirm(QPushButton* button) {
    connect(button, &QPushButton::clicked, this, &QDialog::accept);
    buttons_->addWidget(button);
}

Sheet* confirmation(const QString& title, const QString& message, const QString& destructiveText,
                    QWidget* parent) {
    auto* sheet = new Sheet(title, message, parent);
    sheet->addCancel()->setDefault(true);
    sheet->addConfirm(destructiveButton(QString(destructiveText).replace(u'&', u"&&"_s)));
    return sheet;
}

Sheet* alert(const QString& title, const QString& message, QWidget* parent, const QString& button) {
    auto* sheet = new Sheet(title, message, parent);
    auto* only = prominentButton(button);
    only->setDefault(true);
    sheet->addConfirm(only);
    return sheet;
}

} // namespace brimlow::controls
