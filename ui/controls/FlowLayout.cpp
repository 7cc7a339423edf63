#include "ui/controls/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace brimlow::controls {

FlowLayout::FlowLayout(int spacing) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) {
    items_.emplace_back(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (!itemAt(index))
        return nullptr;
    QLayoutItem* item = items_[static_cast<std::size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

int FlowLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    const QRect area(0, 0, width - margins.left() - margins.right(), 0);
    return flow(area, false) + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const {
    const QMargins margins = contentsMargins();
    int width = 0;
    int height = 0;
    for (const auto& item : items_) {
        if (item->isEmpty())
            continue;
        width += item->sizeHint().width() + (width > 0 ? spacing() : 0);
        height = std::max(height, item->sizeHint().height());
    }
    return QSize(width, height).grownBy(margins);
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : items_)
        size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    flow(rect.marginsRemoved(contentsMargins()), true);
}

int FlowLayout::flow(const QRect& area, bool place) const {
    const auto direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    QPoint at = area.topLeft();
    int lineBottom = area.top();
    for (const auto& item : items_) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint().boundedTo({area.width(), QLAYOUTSIZE_MAX});
        if (at.x() > area.left() && at.x() + size.width() > area.left() + area.width())
            at = {area.left(), lineBottom + spacing()};
        if (place)
            item->setGeometry(QStyle::visualRect(direction, area, {at, size}));
        at.rx() += size.width() + spacing();
        lineBottom = std::max(lineBottom, at.y() + size.height());
    }
    return lineBottom - area.top();
}

} // namespace brimlow::controls
