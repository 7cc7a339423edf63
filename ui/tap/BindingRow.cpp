#include "ui/tap/BindingRow.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/Card.h"
#include "ui/controls/ElidedText.h"
#include "ui/maps/BindingColor.h"
#include "ui/maps/MapPainting.h"
#include "ui/style/Role.h"
#include "ui/style/Symbols.h"
#include "ui/tap/TapTexts.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Card;
using style::TextStyle;
using style::Theme;
using style::Tone;

namespace {

constexpr int dotWidth = 14;
constexpr int symbolWidth = 24;
constexpr int symbolSize = 16;
constexpr int gap = 10;
constexpr int lineGap = 4;
constexpr float unrecordedOpacity = 0.4F;

} // namespace

struct BindingRow::Line {
    struct Piece {
        QString text;
        Tone tone;
    };

    TextStyle style;
    std::vector<Piece> pieces;

    QFontMetrics metrics() const { return QFontMetrics(style::currentType().font(style)); }
    QString text() const {
        QString all;
        for (const Piece& piece : pieces)
            all += (all.isEmpty() ? QString() : u" "_s) + piece.text;
        return all;
    }
};

/// Where things are in a row that is read from left to right.
struct BindingRow::Places {
    int dot;
    int symbol;
    int text;

    Places() {
        const auto& type = style::currentType();
        dot = Card::sidePadding;
        symbol = dot + dotWidth + gap + (type.scaled(symbolWidth) - type.scaled(symbolSize)) / 2;
        text = dot + dotWidth + gap + type.scaled(symbolWidth) + gap;
    }
};

BindingRow::BindingRow(QWidget* parent)
    : QWidget(parent), edit_(controls::borderedButton(u"Edit"_s)) {
    style::setSmall(edit_);
    connect(edit_, &QPushButton::clicked, this, [this] { Q_EMIT editRequested(binding_.id); });
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(Card::sidePadding, Card::padding, Card::sidePadding, Card::padding);
    line->addStretch();
    line->addWidget(edit_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BindingRow::show(const TapPositionMapping& binding, std::size_t position) {
    if (binding == binding_ && position == position_)
        return;
    binding_ = binding;
    position_ = position;
    state_ = recordedState(binding_);
    describe();
    update();
}

void BindingRow::describe() {
    QStringList texts;
    for (const Line& line : lines())
        texts << line.text();
    setAccessibleName(texts.takeFirst());
    setAccessibleDescription(texts.join(u", "_s));
    edit_->setAccessibleName(u"Edit "_s + binding_.name);
    edit_->setAccessibleDescription(accessibleDescription());
}

std::vector<BindingRow::Line> BindingRow::lines() const {
    const bool isRecorded = !binding_.samples.empty();
    std::vector<Line::Piece> action{{displayName(binding_.action), &Theme::secondaryText}};
    if (binding_.appName && !binding_.appName->isEmpty()) {
        action.push_back({u"→"_s, &Theme::tertiaryText});
        action.push_back({*binding_.appName, &Theme::secondaryText});
    }
    return {
        {TextStyle::row, {{binding_.name, &Theme::text}}},
        {TextStyle::caption, std::move(action)},
        {isRecorded ? TextStyle::rowDetail : TextStyle::unrecordedDetail,
         {{state_, isRecorded ? &Theme::tertiaryText : &Theme::orangeText}}},
    };
}

int BindingRow::textWidth() const {
    const int end = layoutDirection() == Qt::RightToLeft ? width() - edit_->geometry().right()
                                                         : edit_->geometry().left();
    return end - gap - Places().text;
}

QSize BindingRow::minimumSizeHint() const {
    int height = 2 * lineGap;
    for (const auto style : {TextStyle::row, TextStyle::caption, TextStyle::rowDetail})
        height += QFontMetrics(style::currentType().font(style)).height();
    const QSize button = QWidget::minimumSizeHint();
    return {Places().text + button.width(), std::max(height + 2 * Card::padding, button.height())};
}

QSize BindingRow::sizeHint() const {
    return minimumSizeHint();
}

bool BindingRow::event(QEvent* event) {
    if (event->type() == QEvent::StyleChange)
        updateGeometry();
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QStringList cut;
    for (const Line& line : lines())
        if (line.metrics().horizontalAdvance(line.text()) > textWidth())
            cut << line.text();
    QToolTip::showText(help->globalPos(),
                       cut.isEmpty() ? QString() : controls::plainToolTip(cut.join(u'\n')), this);
    return true;
}

void BindingRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = style::currentTheme();
    const auto& type = style::currentType();
    const Places places;
    const auto place = [&](int x, int y, int width, int height) {
        return QStyle::visualRect(layoutDirection(), rect(), {x, y, width, height});
    };
    const auto centred = [&](int x, int side) {
        return place(x, (height() - side) / 2, side, side);
    };

    // The first is parted from the map, edge to edge, the others from each other.
    const int end = position_ == 0 ? width() : width() - Card::sidePadding;
    const int start = position_ == 0 ? 0 : places.text;
    painter.fillRect(place(start, 0, end - start, 1), theme.divider);

    const bool isRecorded = !binding_.samples.empty();
    QColor colour = isRecorded ? BindingColor::at(position_) : theme.mapGrey;
    if (!isRecorded)
        colour.setAlphaF(unrecordedOpacity);
    maps::paintMarker(painter, QRectF(centred(places.dot, dotWidth)).center(), colour, 1);
    const int side = type.scaled(symbolSize);
    painter.drawPixmap(centred(places.symbol, side).topLeft(),
                       style::symbol(iconName(binding_.action),
                                     isRecorded ? theme.blue : theme.secondaryText, side,
                                     devicePixelRatioF()));

    int y = Card::padding;
    for (const Line& line : lines()) {
        const QFontMetrics metrics = line.metrics();
        painter.setFont(type.font(line.style));
        int x = places.text;
        const int right = places.text + textWidth();
        for (const auto& [text, tone] : line.pieces) {
            const QString shown = controls::elidedText(text, metrics, right - x);
            const int width = metrics.horizontalAdvance(shown);
            painter.setPen(theme.*tone);
            painter.drawText(place(x, y, width, metrics.height()),
                             Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, shown);
            x += width + lineGap;
        }
        y += metrics.height() + lineGap;
    }
}

} // namespace brimlow
