#include "ui/controls/Caption.h"

#include "ui/style/TypeScale.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace brimlow::controls {

namespace {
constexpr int preferredWidth = 360;
constexpr int narrowest = 80;
} // namespace

Caption::Caption(const QString& text, style::Role role, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setText(text);
    style::setRole(this, role);
}

QString Caption::lines() const {
    return text().replace(u'\n', QChar::LineSeparator);
}

QSize Caption::layOut(QTextLayout& layout, int width) const {
    QTextOption option(QStyle::visualAlignment(layoutDirection(), alignment()));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    const int step = style::lineHeight(font());
    int y = 0;
    double widest = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, y + std::floor((step - line.height()) / 2)});
        y += step;
        widest = std::max(widest, line.naturalTextWidth());
    }
    layout.endLayout();
    return {static_cast<int>(std::ceil(widest)), y};
}

int Caption::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    QTextLayout layout(lines(), font(), this);
    return layOut(layout, width - margins.left() - margins.right()).height() + margins.top()
           + margins.bottom();
}

QSize Caption::sizeHint() const {
    ensurePolished();
    QTextLayout layout(lines(), font(), this);
    return layOut(layout, preferredWidth).grownBy(contentsMargins());
}

QSize Caption::minimumSizeHint() const {
    ensurePolished();
    return {std::min(narrowest, sizeHint().width()), style::lineHeight(font())};
}

void Caption::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    QTextLayout layout(lines(), font(), this);
    layOut(layout, contentsRect().width());
    layout.draw(&painter, contentsRect().topLeft());
}

} // namespace brimlow::controls
