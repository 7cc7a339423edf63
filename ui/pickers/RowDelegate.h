#pragma once

#include <QAbstractItemDelegate>

namespace brimlow {

class RowModel;

/// Paints the rows of a picker's list, all of one height.
class RowDelegate : public QAbstractItemDelegate {
    Q_OBJECT

public:
    RowDelegate(const RowModel& model, QObject* parent);

    static int rowHeight();

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Tells what does not fit.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    const RowModel& model_;
};

} // namespace brimlow
