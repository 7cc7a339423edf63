#include "ui/controls/ToggleRow.h"

#include "ui/controls/Caption.h"
#include "ui/controls/Switch.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace brimlow::controls {

using style::Role;

ToggleRow::ToggleRow(const QString& text, const QString& explanation, QWidget* parent)
    : QWidget(parent), switch_(new Switch(text)) {
    switch_->setAccessibleDescription(explanation);
    connect(switch_, &QAbstractButton::clicked, this, &ToggleRow::chosen);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(new Caption(text, Role::row), 0, Qt::AlignVCenter);
    if (!explanation.isEmpty())
        words->addWidget(new Caption(explanation));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->setSpacing(16);
    line->addLayout(words, 1);
    line->addWidget(switch_, 0, Qt::AlignTop);
}

void ToggleRow::setOn(bool on) {
    switch_->setChecked(on);
}

void ToggleRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        switch_->click();
}

} // namespace brimlow::controls
