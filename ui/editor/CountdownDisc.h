#pragma once

#include <QWidget>

namespace brimlow {

/// What recording is at: a number in a ring while it counts down, a red dot while it listens.
class CountdownDisc : public QWidget {
    Q_OBJECT

public:
    explicit CountdownDisc(QWidget* parent = nullptr);

    /// 0: it listens.
    void setSeconds(int seconds);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintCountdown(QPainter& painter, const QRectF& disc) const;
    static void paintRecording(QPainter& painter, const QRectF& disc);

    int seconds_ = 0;
};

} // namespace brimlow
