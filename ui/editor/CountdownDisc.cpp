#include "ui/editor/CountdownDisc.h"

#include "ui/style/ApplicationStyle.h"

#include <QPainter>

namespace brimlow {

using style::currentTheme;
using style::currentType;

namespace {

constexpr int diameter = 40; // logical pixels, as are all below
constexpr double ringWidth = 3;
constexpr int numberSize = 18;
constexpr double dotRadius = 8;

QColor faint(QColor colour, double opacity) {
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

} // namespace

CountdownDisc::CountdownDisc(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CountdownDisc::setSeconds(int seconds) {
    seconds_ = seconds;
    update();
}

QSize CountdownDisc::sizeHint() const {
    const int side = currentType().scaled(diameter);
    return {side, side};
}

void CountdownDisc::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF disc = QRectF(rect()).marginsRemoved({1.5, 1.5, 1.5, 1.5});
    if (seconds_ > 0)
        paintCountdown(painter, disc);
    else
        paintRecording(painter, disc);
}

void CountdownDisc::paintCountdown(QPainter& painter, const QRectF& disc) const {
    painter.setPen(QPen(faint(currentTheme().orangeSymbol, 0.3), ringWidth));
    painter.drawEllipse(disc);
    QFont font = currentType().font(style::TextStyle::heading);
    font.setPixelSize(currentType().scaled(numberSize));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(currentTheme().orangeText);
    painter.drawText(disc, Qt::AlignCenter, QString::number(seconds_));
}

void CountdownDisc::paintRecording(QPainter& painter, const QRectF& disc) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(faint(currentTheme().redSymbol, 0.2));
    painter.drawEllipse(disc);
    painter.setBrush(currentTheme().redSymbol);
    painter.drawEllipse(disc.center(), dotRadius, dotRadius);
}

} // namespace brimlow
