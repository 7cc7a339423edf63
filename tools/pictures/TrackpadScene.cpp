#include "tools/pictures/Scenes.h"
#include "tools/trackpad/TrackpadWindow.h"

namespace brimlow::pictures {

std::unique_ptr<QWidget> makeTrackpad() {
    auto window = std::make_unique<trackpad::TrackpadWindow>(5);
    window->surface().setFingers(
        {{.id = 1, .point = {0.3, 0.62}}, {.id = 2, .point = {0.46, 0.74}}});
    return window;
}

} // namespace brimlow::pictures
