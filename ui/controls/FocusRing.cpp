#include "ui/controls/FocusRing.h"

#include "ui/style/ApplicationStyle.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>

#include <algorithm>

namespace brimlow::controls {

namespace {

constexpr int gap = 2;
constexpr int thickness = 2;
constexpr int outside = gap + thickness;
constexpr int buttonRadius = 6;

/// Inside of a scroll area what scrolls, else the window.
QWidget* surfaceOf(QWidget* widget) {
    QWidget* surface = widget;
    while (!surface->isWindow()) {
        QWidget* parent = surface->parentWidget();
        const auto* area = qobject_cast<QScrollArea*>(parent->parentWidget());
        if (area && area->widget() == surface && surface != widget)
            return surface;
        surface = parent;
    }
    return surface;
}

} // namespace

FocusRing::FocusRing() {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusRing::surround(QWidget* widget) {
    watchRoad(false);
    widget_ = widget;
    surface_ = widget ? surfaceOf(widget) : nullptr;
    setParent(surface_);
    watchRoad(true);
    follow();
}

// Any widget between the surface and the one that is surrounded may move it.
void FocusRing::watchRoad(bool watch) {
    for (QWidget* at = widget_; at && at != surface_; at = at->parentWidget()) {
        if (watch)
            at->installEventFilter(this);
        else
            at->removeEventFilter(this);
    }
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        follow();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::follow() {
    if (!widget_ || !widget_->isVisibleTo(surface_)) {
        hide();
        return;
    }
    const QRect inner(widget_->mapTo(surface_.data(), QPoint()), widget_->size());
    setGeometry(inner.adjusted(-outside, -outside, outside, outside));
    raise();
    show();
}

void FocusRing::paintEvent(QPaintEvent*) {
    if (!widget_)
        return;
    const QVariant own = widget_->property(radiusProperty);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(style::currentTheme().blue, thickness));
    const double half = thickness / 2.0;
    const QRectF ring = QRectF(rect()).adjusted(half, half, -half, -half);
    const double wanted = (own.isValid() ? own.toInt() : buttonRadius) + outside - half;
    const double radius = std::min({wanted, ring.width() / 2, ring.height() / 2});
    painter.drawRoundedRect(ring, radius, radius);
}

KeyboardFocus::KeyboardFocus(QObject* parent) : QObject(parent) {
    // The reason comes with the event, the widget with the signal, in this order.
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { move(now); });
}

KeyboardFocus::~KeyboardFocus() {
    delete ring_;
}

bool KeyboardFocus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        switch (static_cast<QFocusEvent*>(event)->reason()) {
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            byKeyboard_ = true;
            break;
        case Qt::MouseFocusReason:
            byKeyboard_ = false;
            break;
        default:
            break; // a window that comes forward again shows what it showed
        }
    }
    return QObject::eventFilter(watched, event);
}

void KeyboardFocus::move(QWidget* widget) {
    const bool wanted = widget && byKeyboard_ && !qobject_cast<QLineEdit*>(widget);
    if (!ring_) {
        if (!wanted)
            return;
        ring_ = new FocusRing;
    }
    ring_->surround(wanted ? widget : nullptr);
}

} // namespace brimlow::controls
