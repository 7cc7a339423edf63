#include "tests/desktop/WholeRoad.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

constexpr platform::PadPoint spot{0.3, 0.3};

/// Somebody at the screen, with the binding editor in front.
class EditorRoad : public WholeRoad {
protected:
    void SetUp() override {
        WholeRoad::SetUp();
        launcher = QFileInfo(BrimlowProgram::builtProgram()).dir().filePath(u"editor_probe"_s);
    }

    bool xdotool(const QStringList& arguments) const {
        return desktop.run(u"xdotool"_s, arguments);
    }
    bool press(const QString& key) const { return xdotool({u"key"_s, key}); }
    bool type(const QString& text) const { return xdotool({u"type"_s, text}); }

    /// Empty when it is not on screen.
    QRect placeOf(const QString& name) {
        program->write(name.toUtf8() + '\n');
        const auto words = program->waitForLine(u"at "_s).split(u' ');
        return words.size() != 5
                   ? QRect()
                   : QRect(words[1].toInt(), words[2].toInt(), words[3].toInt(), words[4].toInt());
    }
    bool appears(const QString& name) {
        return desktop.waitFor([&](const DesktopState&) { return !placeOf(name).isEmpty(); });
    }
    /// With the mouse in the page's margin, where nothing but the page takes the wheel.
    bool scrollTo(const QString& name) {
        const QRect save = placeOf(u"Save"_s);
        if (!xdotool({u"mousemove"_s, QString::number(save.right() + 5),
                      QString::number(save.top() - 100)}))
            return false;
        for (int turn = 0; turn < 20 && placeOf(name).height() < 20; ++turn)
            if (!xdotool({u"click"_s, u"5"_s}))
                return false;
        return appears(name);
    }
    /// Into the first row, where there are rows.
    bool click(const QString& name) {
        if (!appears(name))
            return false;
        const QRect place = placeOf(name);
        const int y = place.top() + std::min(place.height() / 2, 20);
        return xdotool({u"mousemove"_s, QString::number(place.center().x()), QString::number(y),
                        u"click"_s, u"1"_s});
    }

    std::uint32_t sheet() const {
        const auto state = desktop.state();
        for (const DesktopWindow& window : state ? state->windows : std::vector<DesktopWindow>())
            if (window.pid == program->pid())
                return window.number;
        return 0;
    }
};

INSTANTIATE_TEST_SUITE_P(On, EditorRoad, testing::Values(WindowManager::openbox), nameOf);

TEST_P(EditorRoad, ASpotIsRecordedBoundToAWindowAndBringsItForward) {
    const auto terminal = openTerminal(u"Inbox — Work"_s);
    const auto editor = desktop.openWindow(u"mousepad"_s);
    start({});
    ASSERT_TRUE(desktop.waitFor([&](const DesktopState&) { return sheet() != 0; }));
    ASSERT_TRUE(becomesActive(sheet()));

    ASSERT_TRUE(press(u"ctrl+a"_s) && type(u"Mail"_s) && press(u"Tab"_s));
    ASSERT_TRUE(press(u"f"_s));              // Focus Specific Window
    ASSERT_TRUE(appears(u"Applications"_s)); // found
    ASSERT_TRUE(press(u"Tab"_s) && type(u"debian-xterm"_s) && press(u"Return"_s));
    ASSERT_TRUE(click(u"Open windows"_s));
    ASSERT_TRUE(appears(u"Clear — fall back to launching / focusing the app"_s));
    ASSERT_TRUE(scrollTo(u"Record Position"_s) && click(u"Record Position"_s));
    ASSERT_TRUE(says(u"PositionRecorder: countdown finished"_s));
    tap(spot);
    ASSERT_TRUE(says(u"PositionRecorder: captured 1/1"_s));
    ASSERT_TRUE(appears(u"Re-record Position"_s));
    if (qEnvironmentVariableIsSet("BRIMLOW_TEST_PICTURES"))
        desktop.screenshot(qEnvironmentVariable("BRIMLOW_TEST_PICTURES") + u"/editor.png"_s);
    ASSERT_TRUE(click(u"Save"_s));
    ASSERT_TRUE(says(u"dismissed"_s));

    ASSERT_TRUE(session->windows().activate(editor));
    ASSERT_TRUE(becomesActive(editor));
    tap(spot);
    EXPECT_TRUE(says(u"matched 'Mail' → Focus Specific Window"_s));
    EXPECT_TRUE(says(u"focus-id: focused id %1"_s.arg(terminal)));
    EXPECT_TRUE(becomesActive(terminal));
    EXPECT_TRUE(program->stop());
}

} // namespace
} // namespace brimlow::desktop
