#pragma once

#include <QFrame>
#include <QImage>

class QPushButton;

namespace brimlow {

namespace controls {
class ElidedLabel;
}
class AppIcon;

/// The application that is chosen, and what can be done about it.
class AppChip : public QFrame {
    Q_OBJECT

public:
    explicit AppChip(QWidget* parent = nullptr);

    /// A null icon: a symbol takes its place.
    void set(const QString& name, const QImage& icon);
    QPushButton* changeButton() { return change_; }

Q_SIGNALS:
    void changeRequested();
    void clearRequested();

private:
    AppIcon* icon_;
    controls::ElidedLabel* name_;
    QPushButton* change_;
};

} // namespace brimlow
