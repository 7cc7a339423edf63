#include "ui/controls/ElidedLabel.h"

#include "ui/controls/ElidedText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace brimlow::controls {

namespace {
constexpr int preferredWidth = 360;
constexpr int narrowest = 40;
} // namespace

ElidedLabel::ElidedLabel(style::Role role, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    style::setRole(this, role);
}

QString ElidedLabel::shown(int width) const {
    return elidedText(text(), fontMetrics(), width);
}

QSize ElidedLabel::sizeHint() const {
    ensurePolished();
    return {fontMetrics().horizontalAdvance(shown(preferredWidth)), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    const QSize size = sizeHint();
    return {std::min(size.width(), narrowest), size.height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    if (shown(width()) == text())
        return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(),
                     QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter
                         | Qt::TextSingleLine,
                     shown(width()));
}

} // namespace brimlow::controls
