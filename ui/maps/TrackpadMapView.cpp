#include "ui/maps/TrackpadMapView.h"

#include "ui/controls/Caption.h"
#include "ui/maps/MapWords.h"
#include "ui/maps/SamplesCanvas.h"

#include <QBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;

TrackpadMapView::TrackpadMapView(const std::vector<TapSample>& samples,
                                 const std::vector<LiveTouch>& liveTouches,
                                 std::optional<TapSample> lastCaptured,
                                 std::optional<double> matchRadius,
                                 const std::optional<QString>& title, QWidget* parent)
    : QWidget(parent), title_(new Caption({}, style::Role::captionHeading)),
      canvas_(new maps::SamplesCanvas) {
    setAccessibleName(u"Trackpad map"_s);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(title_);
    rows->addWidget(canvas_);
    canvas_->setContent({samples, lastCaptured, matchRadius});
    setLiveTouches(liveTouches);
    setTitle(title);
    describe();
}

void TrackpadMapView::setSamples(const std::vector<TapSample>& samples) {
    auto content = canvas_->content();
    content.samples = samples;
    canvas_->setContent(std::move(content));
    describe();
}

void TrackpadMapView::setLastCaptured(std::optional<TapSample> sample) {
    auto content = canvas_->content();
    content.lastCaptured = sample;
    canvas_->setContent(std::move(content));
}

void TrackpadMapView::setMatchRadius(std::optional<double> radius) {
    auto content = canvas_->content();
    content.matchRadius = radius;
    canvas_->setContent(std::move(content));
    describe();
}

void TrackpadMapView::setLiveTouches(const std::vector<LiveTouch>& touches) {
    canvas_->setLiveTouches(touches);
    if (std::exchange(fingers_, touches.size()) != touches.size())
        describe();
}

void TrackpadMapView::setTitle(const std::optional<QString>& title) {
    title_->setText(title.value_or(QString()));
    title_->setVisible(title.has_value());
}

maps::MapCanvas& TrackpadMapView::canvas() {
    return *canvas_;
}

void TrackpadMapView::describe() {
    const auto& content = canvas_->content();
    setAccessibleDescription(maps::samplesInWords(content.samples.size(), content.matchRadius)
                             + maps::fingersInWords(fingers_));
}

} // namespace brimlow
