#pragma once

#include "engine/TapInfo.h"
#include "ui/maps/PadGeometry.h"

#include <QPixmap>
#include <QWidget>

#include <vector>

namespace brimlow::maps {

/// The drawn trackpad, and the fingers on it. Fingers move at the pad's rate, so all else is a
/// picture that is taken once and again only when it changes; a finger repaints where it was and
/// where it is. Opaque, lest a finger has all that is
/// behind the map painted anew: maps lie on cards.
class MapCanvas : public QWidget {
public:
    void setLiveTouches(const std::vector<LiveTouch>& touches);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }

protected:
    MapCanvas(double largestHeight, QWidget* parent);

    /// Of all that may stick out of the trackpad.
    virtual std::vector<Footprint> footprints() const = 0;
    /// Measures what depends on the text's size.
    virtual void measure() {}
    /// The trackpad has a new place or size, or what is on it changed.
    virtual void arrange() {}
    /// Everything but the fingers.
    virtual void paintStill(QPainter& painter) const = 0;

    /// To be called after a change of what is shown, and once at the beginning.
    void contentChanged();

    /// The trackpad in here.
    const QRectF& surface() const { return surface_; }

    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();
    void takePicture();
    void takeFinger();
    QRect rectOf(const LiveTouch& touch) const;

    const double largestHeight_;
    QRectF surface_;
    QPixmap picture_; // null: out of date
    QPixmap finger_;
    std::vector<LiveTouch> liveTouches_;
};

} // namespace brimlow::maps
