#include "ui/pickers/RowList.h"

#include "ui/controls/FocusRing.h"
#include "ui/pickers/RowDelegate.h"
#include "ui/pickers/RowModel.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Role.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace brimlow {

RowList::RowList(const QString& accessibleName, int highest, QWidget* parent)
    : QListView(parent), rows_(new RowModel(this)), highest_(highest) {
    setAccessibleName(accessibleName);
    setModel(rows_);
    setItemDelegate(new RowDelegate(*rows_, this));
    setUniformItemSizes(true);
    setSelectionMode(NoSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus); // a row that was clicked needs no frame
    setProperty(controls::FocusRing::radiusProperty, 8);
    style::setRole(this, style::Role::rows);
    connect(this, &QListView::clicked, this,
            [this](const QModelIndex& index) { Q_EMIT chosen(index.row()); });
}

void RowList::setRows(std::vector<ListRow> rows) {
    rows_->setRows(std::move(rows));
    updateGeometry();
}

void RowList::enter() {
    setFocus(Qt::TabFocusReason);
    setCurrentIndex(rows_->index(0));
}

QSize RowList::sizeHint() const {
    ensurePolished();
    const int wanted = std::max(rows_->rowCount(), 1) * RowDelegate::rowHeight() + 2 * frameWidth();
    return {0, std::min(wanted, style::currentType().scaled(highest_))};
}

void RowList::keyPressEvent(QKeyEvent* event) {
    const auto key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        if (currentIndex().isValid())
            Q_EMIT chosen(currentIndex().row());
    } else if (key == Qt::Key_Escape || (key == Qt::Key_Up && currentIndex().row() <= 0)) {
        event->ignore();
    } else {
        QListView::keyPressEvent(event);
    }
}

void RowList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (rows_->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setFont(style::currentType().font(style::TextStyle::caption));
    painter.setPen(style::currentTheme().secondaryText);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, placeholder_);
}

} // namespace brimlow
