#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace brimlow::controls {

/// Something is being waited for that tells no progress. Turns while it is visible, unless the
/// desktop wants no animations.
class Spinner : public QWidget {
    Q_OBJECT

public:
    explicit Spinner(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QBasicTimer timer_;
    int step_ = 0;
};

} // namespace brimlow::controls
