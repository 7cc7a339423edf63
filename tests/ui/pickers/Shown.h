#pragma once

#include <QAbstractItemView>
#include <QLabel>
#include <QPushButton>
#include <QStringList>

namespace brimlow::test {

/// The texts that a view shows, in the order in which they were made.
inline QStringList shownTexts(const QWidget& view) {
    QStringList texts;
    for (const auto* label : view.findChildren<QLabel*>())
        if (label->isVisible() && !label->text().isEmpty())
            texts << label->text();
    return texts;
}

/// The button that is called, or explained, like that; null where none is shown.
inline QPushButton* shownButton(const QWidget& view, const QString& text) {
    for (auto* button : view.findChildren<QPushButton*>())
        if (button->isVisible()
            && (button->text() == text || button->toolTip() == text
                || button->accessibleName() == text))
            return button;
    return nullptr;
}

/// What a screen reader is told of the rows that are shown.
inline QStringList shownRows(const QAbstractItemView& list) {
    QStringList rows;
    for (int row = 0; list.isVisible() && row < list.model()->rowCount(); ++row)
        rows << list.model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
    return rows;
}

} // namespace brimlow::test
