#include "ui/controls/Badge.h"

#include "ui/style/Role.h"

namespace brimlow::controls {

namespace {

style::Role roleOf(Badge::Kind kind) {
    switch (kind) {
    case Badge::Kind::green:
        return style::Role::greenBadge;
    case Badge::Kind::orange:
        return style::Role::orangeBadge;
    case Badge::Kind::red:
        return style::Role::redBadge;
    case Badge::Kind::grey:
        break;
    }
    return style::Role::greyBadge;
}

} // namespace

Badge::Badge(const QString& text, Kind kind, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    set(text, kind);
}

void Badge::set(const QString& text, Kind kind) {
    setText(text);
    style::setRole(this, roleOf(kind));
}

} // namespace brimlow::controls
