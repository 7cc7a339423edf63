#pragma once

#include "ui/style/Role.h"

#include <QLabel>

class QTextLayout;

namespace brimlow::controls {

/// Small wrapped text with air between its lines, which a QLabel gives to rich text only. What is
/// set is shown as it is: names may have & and < in them.
class Caption : public QLabel {
    Q_OBJECT

public:
    explicit Caption(const QString& text = {}, style::Role role = style::Role::caption,
                     QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Gives back the room that the lines take.
    QSize layOut(QTextLayout& layout, int width) const;
    QString lines() const;
};

} // namespace brimlow::controls
