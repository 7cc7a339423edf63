#include "ui/controls/Spinner.h"

#include "ui/style/ApplicationStyle.h"

#include <QPainter>
#include <QStyle>

namespace brimlow::controls {

namespace {

constexpr int diameter = 16;
constexpr int thickness = 2;
constexpr int steps = 12; // to a full turn
constexpr int stepMilliseconds = 80;
constexpr int degree = 16; // as QPainter counts them

} // namespace

Spinner::Spinner(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Spinner::sizeHint() const {
    const int side = style::currentType().scaled(diameter);
    return {side, side};
}

void Spinner::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0)
        timer_.start(stepMilliseconds, this);
}

void Spinner::hideEvent(QHideEvent* event) {
    timer_.stop();
    QWidget::hideEvent(event);
}

void Spinner::timerEvent(QTimerEvent*) {
    step_ = (step_ + 1) % steps;
    update();
}

void Spinner::paintEvent(QPaintEvent*) {
    const style::Theme& theme = style::currentTheme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = thickness / 2.0 + 0.5;
    const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.setPen(QPen(theme.sliderGroove, thickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme.blue, thickness, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, (90 - 360 * step_ / steps) * degree, -90 * degree);
}

} // namespace brimlow::controls
