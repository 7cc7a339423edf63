#pragma once

#include "ui/style/Role.h"

#include <QLabel>

namespace brimlow::controls {

/// One line of text that somebody else wrote: shown as it is, however long. What does not fit is in
/// its tool tip.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(style::Role role, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shown(int width) const;
};

} // namespace brimlow::controls
