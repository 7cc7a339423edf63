#pragma once

#include <QImage>
#include <QWidget>

namespace brimlow {

/// An application's icon in front of its name; the symbol of applications in general where it has
/// none.
class AppIcon : public QWidget {
    Q_OBJECT

public:
    explicit AppIcon(QWidget* parent = nullptr);

    void set(const QImage& icon);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage icon_;
};

} // namespace brimlow
