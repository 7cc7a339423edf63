#include "permissions/PermissionsManager.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "tools/pictures/Scenes.h"
#include "ui/controls/Sheet.h"
#include "ui/permissions/PermissionsStatusView.h"

namespace brimlow::pictures {

using namespace Qt::StringLiterals;
using platform::TrackpadRemedy;

namespace {

constexpr QSize smallest{420, 400};
constexpr QSize whole{580, 1173};

/// The page where a trackpad cannot be read, however often Grant was pressed.
class PermissionScene : public QWidget {
public:
    explicit PermissionScene(QSize size) {
        setFixedSize(size);
        world_.devices.plugIn({u"SynPS/2 Synaptics TouchPad"_s, u"/dev/input/event5"_s,
                               u"Permission denied"_s, TrackpadRemedy::installRule});
        for (int press = 0; press < 3; ++press)
            permissions_.recordGrantAttempt();
        view_.emplace(
            permissions_, [] {}, this);
        view_->setGeometry(rect());
        view_->recheck();
    }

    PermissionsStatusView& view() { return *view_; }

private:
    test::TestPlatform world_;
    PermissionsManager permissions_;
    std::optional<PermissionsStatusView> view_;
};

/// The dialog that the page opens.
std::unique_ptr<QWidget> dialogAfter(const std::function<void(PermissionsStatusView&)>& act) {
    PermissionScene scene(smallest);
    scene.show();
    act(scene.view());
    auto* dialog = scene.findChild<controls::Sheet*>();
    dialog->setParent(nullptr);
    return std::unique_ptr<QWidget>(dialog);
}

} // namespace

std::unique_ptr<QWidget> makePermissions() {
    return std::make_unique<PermissionScene>(whole);
}

std::unique_ptr<QWidget> makePermissionsSmall() {
    return std::make_unique<PermissionScene>(smallest);
}

std::unique_ptr<QWidget> makePermissionsReset() {
    return dialogAfter([](PermissionsStatusView& view) {
        test::shownButton(view, u"Reset Permissions"_s)->click();
    });
}

std::unique_ptr<QWidget> makePermissionsResetFailed() {
    return dialogAfter([](PermissionsStatusView& view) { view.runReset(); });
}

} // namespace brimlow::pictures
