#pragma once

#include <QCheckBox>

namespace brimlow::controls {

/// A check box drawn as a sliding knob. Its label stands elsewhere in the row, so it is told what
/// it is called.
class Switch : public QCheckBox {
    Q_OBJECT

public:
    explicit Switch(const QString& accessibleName, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brimlow::controls
