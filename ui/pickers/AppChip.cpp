#include "ui/pickers/AppChip.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/ElidedLabel.h"
#include "ui/pickers/AppIcon.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace brimlow {

using namespace Qt::StringLiterals;
using style::Role;

AppChip::AppChip(QWidget* parent)
    : QFrame(parent), icon_(new AppIcon), name_(new controls::ElidedLabel(Role::row)),
      change_(controls::flatIconButton(u"Change app"_s, u"pencil"_s)) {
    style::setRole(this, Role::chip);
    auto* clear = controls::flatIconButton(u"Clear selection"_s, u"xmark.circle.fill"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(11, 5, 5, 5);
    layout->setSpacing(8);
    layout->addWidget(icon_);
    layout->addWidget(name_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(4);
    buttons->addWidget(change_);
    buttons->addWidget(clear);
    layout->addLayout(buttons);
    connect(change_, &QPushButton::clicked, this, &AppChip::changeRequested);
    connect(clear, &QPushButton::clicked, this, &AppChip::clearRequested);
}

void AppChip::set(const QString& name, const QImage& icon) {
    name_->setText(name);
    icon_->set(icon);
    setAccessibleName(u"Chosen app: "_s + name);
}

} // namespace brimlow
