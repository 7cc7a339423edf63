#include "ui/onboarding/StepDots.h"

#include "ui/style/ApplicationStyle.h"

#include <QPainter>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {
constexpr int diameter = 8;
constexpr int pitch = 15; // from one dot to the next
} // namespace

StepDots::StepDots(int count, QWidget* parent) : QWidget(parent), count_(count) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCurrent(0);
}

void StepDots::setCurrent(int step) {
    current_ = step;
    const QString meaning =
        u"Step %1 of %2"_s.arg(QString::number(step + 1), QString::number(count_));
    setAccessibleName(meaning);
    setToolTip(meaning);
    update();
}

QSize StepDots::sizeHint() const {
    return {(count_ - 1) * pitch + diameter, diameter};
}

void StepDots::paintEvent(QPaintEvent*) {
    const style::Theme& theme = style::currentTheme();
    QColor later = theme.greySymbol;
    later.setAlphaF(0.3F);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int step = 0; step < count_; ++step) {
        painter.setBrush(step <= current_ ? theme.accent : later);
        painter.drawEllipse(step * pitch, 0, diameter, diameter);
    }
}

} // namespace brimlow
