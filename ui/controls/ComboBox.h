#pragma once

#include <QComboBox>

namespace brimlow::controls {

/// A combo box with our chevron, which a style sheet could only take from a file in one colour. As
/// wide as it is made, not as its texts: what does not fit is elided.
class ComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit ComboBox(const QString& accessibleName, QWidget* parent = nullptr);

protected:
    /// The page scrolls, whatever is under the mouse meanwhile.
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brimlow::controls
