#include "ui/controls/Switch.h"

#include "ui/controls/FocusRing.h"
#include "ui/style/ApplicationStyle.h"

#include <QPainter>

namespace brimlow::controls {

namespace {

using style::Theme;

struct Look {
    QColor track;
    QColor line;
    QColor knob;
    double knobShare; // of the height
};

Look lookOf(const Switch& button, const Theme& theme) {
    if (!button.isEnabled())
        return {button.isChecked() ? theme.cardBorder : QColor(Qt::transparent), theme.cardBorder,
                theme.disabledText, button.isChecked() ? 0.8 : 0.6};
    if (!button.isChecked())
        return {button.isDown() ? theme.buttonPressed : QColor(Qt::transparent), theme.line,
                theme.line, 0.6};
    const QColor fill = button.isDown()       ? theme.accentPressed
                        : button.underMouse() ? theme.accentHover
                                              : theme.accent;
    return {fill, fill, theme.accentText, 0.8};
}

} // namespace

Switch::Switch(const QString& accessibleName, QWidget* parent) : QCheckBox(parent) {
    setAccessibleName(accessibleName);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setProperty(FocusRing::radiusProperty, FocusRing::pill);
}

QSize Switch::sizeHint() const {
    const auto& type = style::currentType();
    return {type.scaled(36), type.scaled(20)};
}

void Switch::paintEvent(QPaintEvent*) {
    const Look look = lookOf(*this, style::currentTheme());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF track = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(look.line);
    painter.setBrush(look.track);
    painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);

    const double side = look.knobShare * height();
    const double margin = height() / 2.0;
    const bool atRight = isChecked() != (layoutDirection() == Qt::RightToLeft);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.knob);
    painter.drawEllipse(QPointF(atRight ? width() - margin : margin, margin), side / 2, side / 2);
}

} // namespace brimlow::controls
