#include "ui/maps/MapCanvas.h"

#include "ui/maps/MapPainting.h"
#include "ui/style/ApplicationStyle.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace brimlow::maps {

namespace {
constexpr int narrowest = 160;
} // namespace

MapCanvas::MapCanvas(double largestHeight, QWidget* parent)
    : QWidget(parent), largestHeight_(largestHeight) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize MapCanvas::sizeHint() const {
    const int width = qRound(largestHeight_ * aspect + 2 * edge);
    return {width, heightForWidth(width)};
}

QSize MapCanvas::minimumSizeHint() const {
    return {narrowest, heightForWidth(narrowest)};
}

void MapCanvas::setLiveTouches(const std::vector<LiveTouch>& touches) {
    const auto updateWhere = [this](const auto& some, const auto& others) {
        for (const LiveTouch& each : some)
            if (std::find(others.begin(), others.end(), each) == others.end())
                update(rectOf(each));
    };
    updateWhere(liveTouches_, touches);
    updateWhere(touches, liveTouches_);
    liveTouches_ = touches;
}

void MapCanvas::contentChanged() {
    measure();
    place();
    updateGeometry();
}

void MapCanvas::place() {
    surface_ = surfaceIn(size(), largestHeight_, footprints());
    arrange();
    picture_ = {};
    update();
}

void MapCanvas::changeEvent(QEvent* event) {
    // The theme and the text's size come with it.
    if (event->type() == QEvent::StyleChange)
        contentChanged();
    QWidget::changeEvent(event);
}

void MapCanvas::resizeEvent(QResizeEvent*) {
    place();
}

void MapCanvas::takePicture() {
    const double ratio = devicePixelRatioF();
    picture_ = QPixmap((QSizeF(size()) * ratio).toSize());
    picture_.setDevicePixelRatio(ratio);
    picture_.fill(style::currentTheme().card);
    QPainter painter(&picture_);
    painter.setRenderHint(QPainter::Antialiasing);
    paintSurface(painter, surface_);
    paintStill(painter);
}

// Many small curves at once are spread over threads, which costs more than drawing them.
void MapCanvas::takeFinger() {
    const double ratio = devicePixelRatioF();
    finger_ = QPixmap((QSizeF(2 * edge, 2 * edge) * ratio).toSize());
    finger_.setDevicePixelRatio(ratio);
    finger_.fill(Qt::transparent);
    QPainter painter(&finger_);
    painter.setRenderHint(QPainter::Antialiasing);
    paintLiveTouch(painter, {edge, edge});
}

QRect MapCanvas::rectOf(const LiveTouch& touch) const {
    const QPoint centre = pointOn(surface_, {touch.x, touch.y}).toPoint();
    constexpr int reach = static_cast<int>(edge);
    return {centre.x() - reach, centre.y() - reach, 2 * reach, 2 * reach};
}

void MapCanvas::paintEvent(QPaintEvent* event) {
    // Changed since, or dragged to another display.
    if (picture_.isNull() || !qFuzzyCompare(picture_.devicePixelRatio(), devicePixelRatioF())) {
        takePicture();
        takeFinger();
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    for (const LiveTouch& each : liveTouches_)
        if (event->region().intersects(rectOf(each)))
            painter.drawPixmap(rectOf(each).topLeft(), finger_);
}

} // namespace brimlow::maps
