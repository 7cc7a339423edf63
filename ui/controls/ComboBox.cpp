#include "ui/controls/ComboBox.h"

#include "ui/controls/ElidedText.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Symbols.h"

#include <QListView>
#include <QStylePainter>
#include <QWheelEvent>

namespace brimlow::controls {

using namespace Qt::StringLiterals;

namespace {
constexpr int iconGap = 4; // the style's
} // namespace

ComboBox::ComboBox(const QString& accessibleName, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(accessibleName);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setView(new QListView); // Fusion's own view takes no style sheet for its items
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void ComboBox::paintEvent(QPaintEvent*) {
    const int side = style::currentType().scaled(16);
    const QRect chevron(width() - side - side / 2, (height() - side) / 2, side, side);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int room =
        style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
            .width();
    const int icon = option.currentIcon.isNull() ? 0 : option.iconSize.width() + iconGap;
    option.currentText = elidedText(option.currentText, fontMetrics(), room - icon - 2);
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    style::symbolIcon(u"chevron.down"_s, &style::Theme::secondaryText)
        .paint(&painter, QStyle::visualRect(layoutDirection(), rect(), chevron), Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace brimlow::controls
