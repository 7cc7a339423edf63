#pragma once

#include "tools/recording/PadComposer.h"
#include "ui/maps/MapCanvas.h"

#include <QTimer>

namespace brimlow::trackpad {

/// The drawn trackpad. A pressed mouse button is a finger under the mouse, the right one and Ctrl
/// also push the pad down. With Shift, a finger stays where it is left, and can be picked up again;
/// once Shift is let go, all of these lift together.
class TrackpadSurface : public maps::MapCanvas {
    Q_OBJECT

public:
    /// No more than `mostFingers` at once.
    explicit TrackpadSurface(std::size_t mostFingers, QWidget* parent = nullptr);

    const std::vector<platform::PadFinger>& fingers() const { return fingers_; }
    void setFingers(std::vector<platform::PadFinger> fingers);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return false; }

Q_SIGNALS:
    void fingersChanged();

protected:
    std::vector<maps::Footprint> footprints() const override { return {}; }
    void paintStill(QPainter&) const override {}

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    platform::PadPoint pointAt(const QPointF& position) const;
    /// The finger under the mouse as it is now, among the others.
    std::vector<platform::PadFinger> follow(const QMouseEvent& event) const;
    void liftWithoutShift();

    const std::size_t mostFingers_;
    std::vector<platform::PadFinger> fingers_;
    long moved_ = 0; // the finger under the mouse; 0 for none
    long last_ = 0;
    QTimer shiftWatch_;
};

} // namespace brimlow::trackpad
