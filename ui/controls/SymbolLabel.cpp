#include "ui/controls/SymbolLabel.h"

#include "ui/style/ApplicationStyle.h"
#include "ui/style/Symbols.h"

#include <QPainter>

namespace brimlow::controls {

SymbolLabel::SymbolLabel(const QString& symbol, int size, style::Tone tone, QWidget* parent)
    : QWidget(parent), symbol_(symbol), size_(size), tone_(tone) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolLabel::set(const QString& symbol, style::Tone tone) {
    symbol_ = symbol;
    tone_ = tone;
    update();
}

void SymbolLabel::setMeaning(const QString& meaning) {
    setToolTip(meaning);
    setAccessibleName(meaning);
}

QSize SymbolLabel::sizeHint() const {
    const int side = style::currentType().scaled(size_);
    return {side, side};
}

void SymbolLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor colour =
        style::currentTheme().*(isEnabled() ? tone_ : &style::Theme::disabledText);
    painter.drawPixmap(0, 0, style::symbol(symbol_, colour, width(), devicePixelRatioF()));
}

} // namespace brimlow::controls
