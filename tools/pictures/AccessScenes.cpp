#include "tests/support/TestPlatform.h"
#include "tools/pictures/Scenes.h"
#include "ui/access/AccessWindow.h"

namespace brimlow::pictures {

using namespace Qt::StringLiterals;
using platform::TrackpadRemedy;

namespace {

/// The window and the described world that it tells of.
class AccessScene : public QWidget {
public:
    AccessScene(QSize size, const std::function<void(test::TestPlatform&)>& describe) {
        setFixedSize(size);
        world_.session.setName(u"X11 (Openbox)"_s);
        describe(world_);
        window_.emplace();
        window_->setParent(this);
        window_->setGeometry(rect());
        window_->show();
    }

private:
    test::TestPlatform world_;
    std::optional<AccessWindow> window_;
};

constexpr QSize usual{520, 640};
constexpr QSize whole{520, 1010};

} // namespace

std::unique_ptr<QWidget> makeAccess() {
    return std::make_unique<AccessScene>(whole, [](test::TestPlatform& world) {
        world.devices.plugIn({u"SynPS/2 Synaptics TouchPad"_s, u"/dev/input/event5"_s});
        world.devices.plugIn({u"Logitech T650"_s, u"/dev/input/event12"_s});
    });
}

std::unique_ptr<QWidget> makeAccessDenied() {
    return std::make_unique<AccessScene>(usual, [](test::TestPlatform& world) {
        world.devices.plugIn({u"SynPS/2 Synaptics TouchPad"_s, u"/dev/input/event5"_s,
                              u"Permission denied"_s, TrackpadRemedy::installRule});
    });
}

std::unique_ptr<QWidget> makeAccessLimited() {
    return std::make_unique<AccessScene>(usual, [](test::TestPlatform& world) {
        world.session.setReadsTitles(false);
        world.devices.plugIn({u"SynPS/2 Synaptics TouchPad"_s, u"/dev/input/event5"_s});
    });
}

} // namespace brimlow::pictures
