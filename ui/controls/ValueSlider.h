#pragma once

#include <QSlider>

namespace brimlow::controls {

/// A slider over decimal values: `first` + n · `step`, in thousandths, up to `last`. A value that
/// it cannot reach is shown as the nearest that it can, and stays what it is until the user moves
/// the slider.
class ValueSlider : public QSlider {
    Q_OBJECT

public:
    struct Range {
        int first; // all in thousandths
        int last;
        int step;
    };

    ValueSlider(const Range& range, const QString& accessibleName, QWidget* parent = nullptr);

    /// Tells nobody.
    void show(double value);
    using QWidget::show;

Q_SIGNALS:
    /// The user has moved the slider.
    void chosen(double value);

protected:
    /// The page scrolls, whatever is under the mouse meanwhile.
    void wheelEvent(QWheelEvent* event) override;

private:
    const Range range_;
};

} // namespace brimlow::controls
