#include "ui/tap/ProfileNameSheet.h"

#include "profiles/BlankTrimming.h"
#include "ui/controls/Buttons.h"

#include <QLineEdit>
#include <QPushButton>

namespace brimlow {

ProfileNameSheet::ProfileNameSheet(const Texts& texts, const QString& name, QWidget* parent)
    : Sheet(texts.title, texts.caption, parent), name_(new QLineEdit) {
    name_->setMaxLength(1 << 20); // or else a long name would be cut without a word
    name_->setText(name);
    name_->selectAll();
    name_->setPlaceholderText(texts.placeholder);
    name_->setAccessibleName(QStringLiteral("Profile name"));
    add(name_);
    addCancel();
    auto* confirm = controls::prominentButton(texts.confirm);
    confirm->setDefault(true);
    addConfirm(confirm);
    const auto enable = [confirm](const QString& text) {
        confirm->setEnabled(!trimmedBlanks(text).isEmpty());
    };
    connect(name_, &QLineEdit::textChanged, confirm, enable);
    enable(name);
    name_->setFocus();
}

QString ProfileNameSheet::name() const {
    return name_->text();
}

} // namespace brimlow
