#include "tools/trackpad/TrackpadSurface.h"

#include "tools/recording/PadScript.h"

#include <QGuiApplication>
#include <QLineF>
#include <QMouseEvent>

#include <algorithm>

namespace brimlow::trackpad {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::PadFinger;
using platform::PadPoint;

namespace {

constexpr QSizeF usual{480, 300};
constexpr QSizeF smallest{240, 150};
constexpr double largestHeight = 1200;

QSize around(const QSizeF& surface) {
    return surface.toSize().grownBy(QMargins(1, 1, 1, 1) * static_cast<int>(maps::edge));
}

} // namespace

TrackpadSurface::TrackpadSurface(std::size_t mostFingers, QWidget* parent)
    : MapCanvas(largestHeight, parent), mostFingers_(mostFingers) {
    setAccessibleName(u"Trackpad"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    shiftWatch_.setInterval(20ms);
    connect(&shiftWatch_, &QTimer::timeout, this, &TrackpadSurface::liftWithoutShift);
    contentChanged();
}

QSize TrackpadSurface::sizeHint() const {
    return around(usual);
}

QSize TrackpadSurface::minimumSizeHint() const {
    return around(smallest);
}

void TrackpadSurface::setFingers(std::vector<PadFinger> fingers) {
    fingers_ = std::move(fingers);
    std::vector<LiveTouch> touches;
    for (const PadFinger& each : fingers_)
        touches.push_back({static_cast<std::int32_t>(each.id), each.point.x, each.point.y});
    setLiveTouches(touches);
    Q_EMIT fingersChanged();
}

PadPoint TrackpadSurface::pointAt(const QPointF& position) const {
    const QPointF inside = position - surface().topLeft();
    return {std::clamp(inside.x() / surface().width(), 0.0, 1.0),
            std::clamp(1 - inside.y() / surface().height(), 0.0, 1.0)};
}

std::vector<PadFinger> TrackpadSurface::follow(const QMouseEvent& event) const {
    auto fingers = fingers_;
    const auto moved = std::ranges::find(fingers, moved_, &PadFinger::id);
    if (moved == fingers.end())
        return fingers;
    moved->point = pointAt(event.position());
    moved->clicks = event.buttons().testFlag(Qt::RightButton)
                    || (event.buttons() && event.modifiers().testFlag(Qt::ControlModifier));
    moved->pressure = moved->clicks ? platform::clickPressure : platform::tapPressure;
    return fingers;
}

void TrackpadSurface::mousePressEvent(QMouseEvent* event) {
    if (moved_ == 0) {
        const auto kept = std::ranges::find_if(fingers_, [&](const PadFinger& each) {
            const QPointF centre = maps::pointOn(surface(), {each.point.x, each.point.y});
            return QLineF(centre, event->position()).length() <= maps::edge;
        });
        if (kept != fingers_.end())
            moved_ = kept->id;
        else if (fingers_.size() < mostFingers_ && surface().contains(event->position()))
            fingers_.push_back({.id = moved_ = ++last_, .point = {}});
    }
    setFingers(follow(*event));
}

void TrackpadSurface::mouseMoveEvent(QMouseEvent* event) {
    setFingers(follow(*event));
}

void TrackpadSurface::mouseReleaseEvent(QMouseEvent* event) {
    if (event->buttons()) {
        setFingers(follow(*event));
    } else if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        setFingers(follow(*event));
        shiftWatch_.start();
        moved_ = 0;
    } else {
        setFingers({}); // the pad comes up with the finger
        moved_ = 0;
    }
}

// Not by a key event: the window has no focus that one could come to.
void TrackpadSurface::liftWithoutShift() {
    if (QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier))
        return;
    shiftWatch_.stop();
    auto fingers = fingers_;
    std::erase_if(fingers, [this](const PadFinger& each) { return each.id != moved_; });
    setFingers(std::move(fingers));
}

} // namespace brimlow::trackpad
