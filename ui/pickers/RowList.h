#pragma once

#include "ui/pickers/ListRow.h"

#include <QListView>

#include <vector>

namespace brimlow {

class RowModel;

/// A picker's list, as high as its rows up to a limit. A row is chosen with a click, Return or
/// Space. Keys that lead out of the list, Escape and Up from its first row, are its parent's.
class RowList : public QListView {
    Q_OBJECT

public:
    RowList(const QString& accessibleName, int highest, QWidget* parent = nullptr);

    void setRows(std::vector<ListRow> rows);
    /// Instead of rows where there are none.
    void setPlaceholder(const QString& text) { placeholder_ = text; }
    /// Gives the focus to the first row, as the keyboard does.
    void enter();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void chosen(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    RowModel* rows_;
    int highest_; // in lengths that grow with the text
    QString placeholder_;
};

} // namespace brimlow
