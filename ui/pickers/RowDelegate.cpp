#include "ui/pickers/RowDelegate.h"

#include "ui/controls/ElidedText.h"
#include "ui/pickers/RowModel.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Symbols.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace brimlow {

using namespace Qt::StringLiterals;
using style::TextStyle;
using style::Theme;

namespace {

constexpr int radius = 5;
constexpr int focusThickness = 2;

/// Where things are in a row.
struct Places {
    QRect icon;
    QRect title;
    QRect detail;
    QRect check;

    Places(const QRect& row, Qt::LayoutDirection direction, bool hasCheck) {
        const auto& type = style::currentType();
        const int margin = type.scaled(8);
        const int iconSide = type.scaled(18);
        const int checkSide = type.scaled(16);
        const int textLeft = row.left() + margin + iconSide + margin;
        const int textRight = row.right() - margin - (hasCheck ? checkSide + margin : 0);
        const int half = type.scaled(16);
        const int top = row.top() + (row.height() - 2 * half) / 2;
        const auto place = [&](int x, int y, int width, int height) {
            return QStyle::visualRect(direction, row, {x, y, width, height});
        };
        icon = place(row.left() + margin, row.center().y() - iconSide / 2, iconSide, iconSide);
        title = place(textLeft, top, textRight - textLeft, half);
        detail = place(textLeft, top + half, textRight - textLeft, half);
        check = place(row.right() - margin - checkSide, row.center().y() - checkSide / 2, checkSide,
                      checkSide);
    }
};

void paintSurface(QPainter& painter, const QStyleOptionViewItem& option, bool isTinted) {
    const Theme& theme = style::currentTheme();
    painter.setPen(Qt::NoPen);
    if (isTinted)
        painter.setBrush(theme.listSelection);
    else if (option.state.testFlag(QStyle::State_MouseOver))
        painter.setBrush(theme.cardHover);
    else
        painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(option.rect, radius, radius);
    if (!option.state.testFlag(QStyle::State_HasFocus))
        return;
    const double half = focusThickness / 2.0;
    painter.setPen(QPen(theme.blue, focusThickness));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(half, half, -half, -half), radius, radius);
}

void paintSymbol(QPainter& painter, const QString& name, style::Tone tone, const QRect& place) {
    painter.drawPixmap(place, style::symbol(name, style::currentTheme().*tone, place.width(),
                                            painter.device()->devicePixelRatioF()));
}

void paintText(QPainter& painter, const QString& text, TextStyle textStyle, const QColor& colour,
               const QRect& place, Qt::LayoutDirection direction) {
    painter.setFont(style::currentType().font(textStyle));
    painter.setPen(colour);
    painter.drawText(place,
                     QStyle::visualAlignment(direction, Qt::AlignLeft) | Qt::AlignVCenter
                         | Qt::TextSingleLine,
                     controls::elidedText(text, painter.fontMetrics(), place.width()));
}

bool fits(const QString& text, TextStyle textStyle, int width) {
    const QFontMetrics metrics(style::currentType().font(textStyle));
    return controls::elidedText(text, metrics, width) == text;
}

} // namespace

RowDelegate::RowDelegate(const RowModel& model, QObject* parent)
    : QAbstractItemDelegate(parent), model_(model) {}

int RowDelegate::rowHeight() {
    return style::currentType().scaled(41);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, rowHeight()};
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const ListRow& row = model_.row(index);
    const Theme& theme = style::currentTheme();
    const Places places(option.rect, option.direction, row.hasCheck);
    painter->save();
    painter->setClipRect(option.rect); // marks may be heaped up beyond their line
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    paintSurface(*painter, option, row.isTinted);
    if (row.icon.isNull())
        paintSymbol(*painter, row.symbol, row.symbolTone, places.icon);
    else
        painter->drawImage(places.icon, row.icon);
    paintText(*painter, row.title, TextStyle::row, theme.text, places.title, option.direction);
    paintText(*painter, row.detail, TextStyle::secondCaption, theme.secondaryText, places.detail,
              option.direction);
    if (row.hasCheck)
        paintSymbol(*painter, u"checkmark"_s, &Theme::blue, places.check);
    painter->restore();
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (!index.isValid() || event->type() != QEvent::ToolTip)
        return false;
    const ListRow& row = model_.row(index);
    const int width = Places(option.rect, option.direction, row.hasCheck).title.width();
    QStringList hidden;
    if (!fits(row.title, TextStyle::row, width))
        hidden << row.title;
    if (!fits(row.detail, TextStyle::secondCaption, width))
        hidden << row.detail;
    if (hidden.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), controls::plainToolTip(hidden.join(u'\n')), view);
    return true;
}

} // namespace brimlow
