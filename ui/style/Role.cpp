#include "ui/style/Role.h"

#include <QMetaEnum>
#include <QStyle>
#include <QWidget>

namespace brimlow::style {

namespace {

// A style sheet looks at properties only while it polishes a widget.
void setStyleProperty(QWidget* widget, const char* name, const QVariant& value) {
    if (widget->property(name) == value)
        return;
    widget->setProperty(name, value);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

void setRole(QWidget* widget, Role role) {
    const char* name = QMetaEnum::fromType<Role>().valueToKey(static_cast<int>(role));
    setStyleProperty(widget, "role", QString::fromLatin1(name));
}

void setSmall(QWidget* button) {
    setStyleProperty(button, "small", true);
}

} // namespace brimlow::style
