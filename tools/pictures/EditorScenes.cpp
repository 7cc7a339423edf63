#include "tests/support/TestPlatform.h"
#include "tools/pictures/Scenes.h"
#include "ui/editor/BindingEditorSheet.h"

#include <QVBoxLayout>

namespace brimlow::pictures {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usual{520, 680};

/// The sheet in a window of its own, over a described world.
class EditorScene : public QWidget {
public:
    using Act = std::function<void(EditorScene&)>;

    EditorScene(BindingDraft draft, int height, const Act& act) {
        setFixedSize(usual.width(), height);
        world.applications.install({.id = u"firefox"_s, .plainName = u"Firefox"_s, .icon = u"b"_s});
        for (const auto& title : {u"Notes for Thursday — Firefox"_s, u"Build log — Firefox"_s,
                                  u"Inbox (3) — Firefox"_s})
            world.session.openWindow(u"firefox"_s, 7, title);
        sheet.emplace(std::move(draft), store, recorder, trackpad, [] {});
        sheet->setWindowFlags(Qt::Widget);
        sheet->setParent(this);
        sheet->setGeometry(rect());
        sheet->show();
        act(*this);
        world.time.run();
    }

    test::TestPlatform world;
    TapPositionMappings store{0, world.defaults};
    PositionRecorder recorder;
    MultitouchManager trackpad;
    std::optional<BindingEditorSheet> sheet;
};

std::unique_ptr<QWidget> scene(
    BindingDraft draft, int height = usual.height(),
    const EditorScene::Act& act = [](EditorScene&) {}) {
    return std::make_unique<EditorScene>(std::move(draft), height, act);
}

TapPositionMapping binding(TapAction action) {
    TapPositionMapping result{.id = QUuid::createUuid(), .name = u"Browser"_s, .action = action};
    result.samples = {{0.145, 0.52}};
    result.explicitMatchRadius = 0.08;
    result.minimumPressure = 0.35;
    return result;
}

} // namespace

std::unique_ptr<QWidget> makeEditorEmpty() {
    return scene(BindingDraft::create());
}

std::unique_ptr<QWidget> makeEditorWhole() {
    auto focus = binding(TapAction::focusWindow);
    focus.appName = u"firefox"_s;
    focus.windowTitle = u"Firefox"_s;
    focus.targetWindowID = 41943012;
    return scene(BindingDraft::edit(focus), 1500);
}

std::unique_ptr<QWidget> makeEditorLegacy() {
    auto legacy = binding(TapAction::toggleBrimlow);
    legacy.samples = {{0.145, 0.52}, {0.16, 0.5}, {0.15, 0.56}};
    return scene(BindingDraft::edit(legacy), 1200);
}

std::unique_ptr<QWidget> makeEditorCountdown() {
    return scene(BindingDraft::create(), usual.height(),
                 [](EditorScene& scene) { scene.recorder.start(3); });
}

std::unique_ptr<QWidget> makeEditorRecording() {
    return scene(BindingDraft::create(), usual.height(), [](EditorScene& scene) {
        scene.recorder.start(0);
        scene.trackpad.liveTouches = std::vector<LiveTouch>{{.id = 1, .x = 0.86, .y = 0.34}};
    });
}

} // namespace brimlow::pictures
