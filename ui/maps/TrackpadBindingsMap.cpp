#include "ui/maps/TrackpadBindingsMap.h"

#include "ui/controls/Caption.h"
#include "ui/maps/BindingsCanvas.h"
#include "ui/maps/MapWords.h"

#include <QBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;

TrackpadBindingsMap::TrackpadBindingsMap(const std::vector<TapPositionMapping>& bindings,
                                         const std::vector<LiveTouch>& liveTouches, QWidget* parent)
    : QWidget(parent), count_(new Caption), canvas_(new maps::BindingsCanvas) {
    auto* title = new Caption(u"All bindings on trackpad"_s, style::Role::captionHeading);
    setAccessibleName(title->text());
    count_->setAlignment(Qt::AlignRight);
    auto* header = new QHBoxLayout;
    header->setSpacing(12);
    header->addWidget(title, 1);
    header->addWidget(count_);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(header);
    rows->addWidget(canvas_);
    count_->setText(maps::bindingsInWords(bindings_));
    setBindings(bindings);
    setLiveTouches(liveTouches);
    describe();
}

void TrackpadBindingsMap::setBindings(const std::vector<TapPositionMapping>& bindings) {
    if (bindings == bindings_)
        return;
    bindings_ = bindings;
    count_->setText(maps::bindingsInWords(bindings_));
    canvas_->setBindings(bindings_);
    describe();
}

void TrackpadBindingsMap::setLiveTouches(const std::vector<LiveTouch>& touches) {
    canvas_->setLiveTouches(touches);
    if (std::exchange(fingers_, touches.size()) != touches.size())
        describe();
}

maps::MapCanvas& TrackpadBindingsMap::canvas() {
    return *canvas_;
}

void TrackpadBindingsMap::describe() {
    setAccessibleDescription(count_->text() + maps::fingersInWords(fingers_));
}

} // namespace brimlow
