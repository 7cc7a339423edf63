#include "profiles/DefaultLayout.h"
#include "tests/support/TestPlatform.h"
#include "tools/pictures/Scenes.h"
#include "ui/controls/Card.h"
#include "ui/maps/TrackpadBindingsMap.h"
#include "ui/maps/TrackpadMapView.h"
#include "ui/style/Role.h"

#include <QBoxLayout>

namespace brimlow::pictures {

using namespace Qt::StringLiterals;
using controls::Card;

namespace {

/// Cards of a map each, on a page that is as wide as the window which has them.
std::unique_ptr<QWidget> pageOf(int width, const std::vector<QWidget*>& maps) {
    auto page = std::make_unique<QFrame>();
    style::setRole(page.get(), style::Role::page);
    page->setFixedWidth(width);
    auto* rows = new QVBoxLayout(page.get());
    rows->setContentsMargins(20, 20, 20, 20);
    rows->setSpacing(12);
    for (QWidget* map : maps) {
        auto* card = new Card;
        card->add(map);
        rows->addWidget(card);
    }
    return page;
}

TapPositionMapping binding(const QString& name, std::vector<TapSample> samples, double radius) {
    return {.name = name, .samples = std::move(samples), .explicitMatchRadius = radius};
}

std::vector<TapPositionMapping> worked() {
    return {
        binding(u"Top left corner"_s, {{0.06, 0.91}}, 0.1),
        binding(u"Left 2"_s, {{0, 0.7}}, 0.1),
        binding(u"Browser"_s, {{0.145, 0.52}}, 0.08),
        binding(u"Left 4"_s, {{0, 0.3}}, 0.1),
        binding(u"Left palm rest"_s, {{0.1, 0.08}}, 0.1),
        binding(u"Top right corner"_s, {{0.94, 0.91}}, 0.1),
        binding(u"Terminal"_s, {{0.8, 0.66}}, 0.075),
        binding(u"Mail"_s, {{0.915, 0.6}}, 0.075),
        binding(u"Right 4"_s, {{1, 0.3}}, 0.1),
        binding(u"Off switch"_s, {{0.93, 0.08}}, 0.06),
    };
}

std::vector<TapPositionMapping> crowded() {
    std::vector<TapPositionMapping> all{
        binding(u"A binding whose name is far too long for its label"_s, {{0, 0.95}}, 0.05),
        binding(u"שולחן העבודה הבא משמאל למסך הראשי"_s, {{1, 0.95}}, 0.05),
        binding(u"Left <2> & more"_s, {{0.5, 1}}, 0.05),
        binding(u"Not recorded"_s, {}, 0.1),
        binding(u"Bottom edge"_s, {{0.5, 0}}, 0.05),
    };
    for (int i = 0; i < 9; ++i)
        all.push_back(binding(u"Spot "_s + QString::number(i + 1),
                              {{0.42 + 0.06 * (i % 3), 0.42 + 0.08 * (i / 3.0)}}, 0.04));
    return all;
}

const QString title =
    u"Trackpad map (red = recorded position; pale circle = match area; blue = live touch)"_s;
const std::vector<LiveTouch> fingers{{1, 0.3, 0.62}, {2, 0.45, 0.74}, {3, 1, 1}};

} // namespace

std::unique_ptr<QWidget> makeBindingsMaps() {
    const test::TestPlatform world;
    return pageOf(580, {new TrackpadBindingsMap(buildDefaultLayout(10)),
                        new TrackpadBindingsMap(worked()),
                        new TrackpadBindingsMap(crowded(), fingers), new TrackpadBindingsMap});
}

std::unique_ptr<QWidget> makeNarrowMaps() {
    const test::TestPlatform world;
    return pageOf(300, {new TrackpadBindingsMap(buildDefaultLayout(10)),
                        new TrackpadBindingsMap({binding(u"Large"_s, {{0.1, 0.1}}, 0.5)}),
                        new TrackpadMapView({{0.02, 0.5}}, {}, {}, 0.2, title)});
}

std::unique_ptr<QWidget> makeSampleMaps() {
    const std::vector<TapSample> legacy{{0.2, 0.3}, {0.22, 0.34}, {0.26, 0.28}, {0.24, 0.36}};
    std::vector<TapSample> many(12);
    for (int i = 0; i < 12; ++i)
        many[i] = {0.06 + 0.08 * i, i % 2 ? 0.3 : 0.7};
    return pageOf(520,
                  {new TrackpadMapView({}, {}, {}, 0.03, title),
                   new TrackpadMapView({{0.145, 0.52}}, {}, TapSample{0.145, 0.52}, 0.08, title),
                   new TrackpadMapView(legacy, fingers, legacy.back(), 0.09),
                   new TrackpadMapView({{0.96, 0.05}}, {}, TapSample{0.96, 0.05}, 0.3),
                   new TrackpadMapView(many)});
}

} // namespace brimlow::pictures
