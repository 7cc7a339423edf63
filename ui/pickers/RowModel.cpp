#include "ui/pickers/RowModel.h"

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype longestSpoken = 200; // of each line
} // namespace

void RowModel::setRows(std::vector<ListRow> rows) {
    if (rows.size() == rows_.size()) {
        rows_ = std::move(rows);
        if (!rows_.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const ListRow& row = this->row(index);
    switch (role) {
    case Qt::DisplayRole:
        return row.title;
    case Qt::AccessibleTextRole:
        return QString(row.title.left(longestSpoken) + u", "_s + row.detail.left(longestSpoken));
    case Qt::AccessibleDescriptionRole:
        return row.isTinted ? u"Selected"_s : QString();
    default:
        return {};
    }
}

} // namespace brimlow
