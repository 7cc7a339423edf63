#include "ui/pickers/BoundWindow.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/ElidedLabel.h"
#include "ui/controls/SymbolLabel.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::ElidedLabel;
using style::Role;

BoundWindow::BoundWindow(QWidget* parent)
    : QFrame(parent), number_(new ElidedLabel(Role::row)),
      fallback_(new ElidedLabel(Role::secondCaption)) {
    style::setRole(this, Role::chip);
    auto* clear = controls::flatIconButton(u"Clear — fall back to launching / focusing the app"_s,
                                           u"xmark.circle.fill"_s);
    auto* words = new QVBoxLayout;
    words->setSpacing(1);
    words->addWidget(number_);
    words->addWidget(fallback_);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(11, 5, 5, 5);
    layout->setSpacing(8);
    layout->addWidget(
        new controls::SymbolLabel(u"macwindow.badge.plus"_s, 18, &style::Theme::blue));
    layout->addLayout(words, 1);
    layout->addWidget(clear);
    connect(clear, &QPushButton::clicked, this, &BoundWindow::clearRequested);
}

void BoundWindow::set(std::uint32_t number, const QString& fallbackTitle) {
    number_->setText(u"Bound to window ID "_s + QString::number(number));
    fallback_->setText(u"fallback: "_s + fallbackTitle);
    fallback_->setVisible(!fallbackTitle.isEmpty());
    setAccessibleName(number_->text());
}

} // namespace brimlow
