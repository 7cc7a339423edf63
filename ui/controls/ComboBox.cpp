#include "ui/controls/ComboBox.h"

#include "ui/style/ApplicationStyle.h"
#include "ui/style/Symbols.h"

#include <QListView>
#include <QPainter>

namespace brimlow::controls {

using namespace Qt::StringLiterals;

ComboBox::ComboBox(const QString& accessibleName, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(accessibleName);
    setView(new QListView); // Fusion's own view takes no style sheet for its items
}

void ComboBox::paintEvent(QPaintEvent* event) {
    QComboBox::paintEvent(event);
    const int side = style::currentType().scaled(16);
    QRect chevron(width() - side - side / 2, (height() - side) / 2, side, side);
    QPainter painter(this);
    style::symbolIcon(u"chevron.down"_s, &style::Theme::secondaryText)
        .paint(&painter, QStyle::visualRect(layoutDirection(), rect(), chevron), Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace brimlow::controls
