#pragma once

#include <QWidget>

namespace brimlow {

/// How far one has come: a dot for each step, coloured up to the current one.
class StepDots : public QWidget {
    Q_OBJECT

public:
    explicit StepDots(int count, QWidget* parent = nullptr);

    /// Counted from 0.
    void setCurrent(int step);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int count_;
    int current_ = 0;
};

} // namespace brimlow
