#pragma once

#include "ui/pickers/ListRow.h"

#include <QAbstractListModel>

#include <vector>

namespace brimlow {

/// The rows of a picker's list for Qt's views. What is painted is taken from row().
class RowModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// As many rows as before are the same rows that look different; current one and scroll
    /// position stay.
    void setRows(std::vector<ListRow> rows);
    const ListRow& row(const QModelIndex& index) const {
        return rows_[static_cast<std::size_t>(index.row())];
    }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<ListRow> rows_;
};

} // namespace brimlow
