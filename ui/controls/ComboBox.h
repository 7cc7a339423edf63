#pragma once

#include <QComboBox>

namespace brimlow::controls {

/// A combo box with our chevron, which a style sheet could only take from a file in one colour.
class ComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit ComboBox(const QString& accessibleName, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brimlow::controls
