#include "platform/Streams.h"
#include "profiles/ProfileJSONDocument.h"
#include "profiles/TapPositionMappings.h"
#include "tests/desktop/Person.h"
#include "tests/desktop/WholeRoad.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

constexpr platform::PadPoint spot{0.3, 0.3};

/// Somebody uses the main window.
class PersonRoad : public WholeRoad {
protected:
    void SetUp() override {
        WholeRoad::SetUp();
        ASSERT_EQ(person.sitDown(), QString());
        ASSERT_TRUE(desktop.startPortal()) << desktop.error().toStdString();
    }
    QProcessEnvironment programEnvironment() const override { return person.environment(); }

    /// Into a dialog of that title.
    bool answers(const QString& title, const QString& text) {
        return person.isIn(title) && person.press(u"ctrl+a"_s) && person.type(text)
               && person.press(u"Return"_s);
    }
    bool bringBack() {
        return desktop.run(u"wmctrl"_s, {u"-F"_s, u"-a"_s, u"Brimlow"_s})
               && person.isIn(u"Brimlow"_s);
    }
    platform::NSUserDefaults stored() {
        return {desktop.environment().value(u"XDG_CONFIG_HOME"_s) + u"/brimlow/preferences.json"_s,
                log};
    }

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    platform::StandardStreams log;
    platform::MockedPad second{input, platform::ordinaryTrackpad(), 6};
    Person person{desktop};
};

INSTANTIATE_TEST_SUITE_P(On, PersonRoad, testing::Values(WindowManager::openbox), nameOf);

TEST_P(PersonRoad, ProfilesAndTheirBindings) {
    const auto terminal = openTerminal(u"Inbox — Work"_s);
    const auto editor = desktop.openWindow(u"mousepad"_s);
    start({});
    ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    ASSERT_TRUE(person.click(QStringList{u"Tap"_s, u"New Profile"_s}));
    ASSERT_TRUE(answers(u"New Profile"_s, u"Travel"_s));
    ASSERT_TRUE(person.sees(u"Travel"_s, u"combo box"_s));
    ASSERT_TRUE(person.click(QStringList{u"Rename profile"_s}));
    ASSERT_TRUE(answers(u"Rename Profile"_s, u"Journeys"_s));
    ASSERT_TRUE(person.sees(u"Journeys"_s, u"combo box"_s));
    ASSERT_TRUE(person.click(QStringList{u"Clear All Bindings"_s, u"Delete All"_s}));
    ASSERT_TRUE(person.sees(u"No tap bindings yet"_s));

    ASSERT_TRUE(person.click(QStringList{u"Add Binding"_s}));
    ASSERT_TRUE(person.isIn(u"New Tap Binding"_s));
    ASSERT_TRUE(person.press(u"ctrl+a"_s) && person.type(u"Mail"_s) && person.press(u"Tab"_s));
    ASSERT_TRUE(person.press(u"f"_s)); // Focus Specific Window
    ASSERT_TRUE(person.sees(u"Applications"_s));
    ASSERT_TRUE(person.press(u"Tab"_s) && person.type(u"debian-xterm"_s)
                && person.press(u"Return"_s));
    ASSERT_TRUE(person.click(QStringList{u"Open windows"_s, u"Record Position"_s}));
    ASSERT_TRUE(says(u"PositionRecorder: countdown finished"_s));
    tap(spot);
    ASSERT_TRUE(says(u"PositionRecorder: captured 1/1"_s));
    ASSERT_TRUE(person.sees(u"Re-record Position"_s));
    person.lookAt(u"editor"_s);
    ASSERT_TRUE(person.click(QStringList{u"Save"_s}));
    ASSERT_TRUE(person.sees(u"Edit Mail"_s));
    person.lookAt(u"tap"_s);
    ASSERT_TRUE(session->windows().activate(editor));
    ASSERT_TRUE(becomesActive(editor));
    tap(spot);
    EXPECT_TRUE(says(u"matched 'Mail' → Focus Specific Window"_s));
    EXPECT_TRUE(says(u"focus-id: focused id %1"_s.arg(terminal)));
    EXPECT_TRUE(becomesActive(terminal));

    const QString path = desktop.home() + u"/shared.json"_s;
    ASSERT_TRUE(bringBack());
    ASSERT_TRUE(person.click(QStringList{u"Export this profile to a file you can share"_s}));
    ASSERT_TRUE(person.isIn(u"Export Profile"_s));
    person.lookAt(u"export"_s);
    ASSERT_TRUE(answers(u"Export Profile"_s, path));
    ASSERT_TRUE(comesTrue([&] { return QFileInfo::exists(path); }));
    ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    ASSERT_TRUE(person.click(QStringList{u"Delete profile"_s, u"Delete Profile"_s}));
    ASSERT_TRUE(person.sees(u"Scratch"_s, u"combo box"_s));
    const auto import = [this] {
        return person.click(QStringList{u"Import a profile from a shared file"_s})
               && person.isIn(u"Import Profile"_s);
    };
    ASSERT_TRUE(import() && person.press(u"Escape"_s));
    ASSERT_TRUE(person.isIn(u"Brimlow"_s)) << "where nothing tells of a failure";
    for (const auto& name : {u"Journeys"_s, u"Journeys 2"_s}) {
        ASSERT_TRUE(import() && person.press(u"ctrl+l"_s));
        ASSERT_TRUE(answers(u"Import Profile"_s, path));
        ASSERT_TRUE(person.sees(name, u"combo box"_s));
        ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    }
    ASSERT_TRUE(person.click(QStringList{u"Reset to Default Layout (10 positions)"_s}));
    ASSERT_TRUE(person.sees(u"Edit Right 5"_s));
    EXPECT_TRUE(program->stop());

    auto defaults = stored();
    const TapPositionMappings store(0, defaults);
    std::map<QString, std::size_t> bindings;
    for (const TapProfile& profile : store.profiles.get())
        bindings[profile.name] = profile.bindings.size();
    EXPECT_EQ(bindings, (std::map<QString, std::size_t>{
                            {u"Scratch"_s, 0}, {u"Journeys"_s, 1}, {u"Journeys 2"_s, 10}}));
    EXPECT_EQ(store.activeProfile()->name, u"Journeys 2"_s);
    const auto file = ProfileJSONDocument::read(path);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->data.contains("\"Mail\"")) << file->data.constData();
}

TEST_P(PersonRoad, EverythingHasANameAndIsReachedByKeyboard) {
    start({bindingAt(u"spot"_s, spot.x, spot.y, TapAction::none)});
    ASSERT_TRUE(person.isIn(u"Brimlow"_s) && person.sees(u"General"_s, u"radio button"_s));
    EXPECT_TRUE(person.reader().find(u"General"_s, u"radio button"_s)->checked);
    ASSERT_TRUE(person.click(QStringList{u"General"_s}));
    for (const auto& section : {u"General"_s, u"Tap"_s, u"Permissions"_s}) {
        SCOPED_TRACE(section.toStdString());
        if (section != u"General"_s) {
            ASSERT_TRUE(person.press(u"Down"_s));
        }
        ASSERT_TRUE(person.hasFocusOn(section));
        QStringList unreached;
        for (const Accessible& thing : person.reader().everything()) {
            EXPECT_TRUE(!thing.focusable || !thing.name.isEmpty()) << thing.role.toStdString();
            if (thing.focusable && thing.enabled && thing.role != u"radio button"_s)
                unreached << thing.name;
        }
        EXPECT_FALSE(unreached.isEmpty());
        for (auto turns = unreached.size() + 1; turns > 0; --turns) {
            ASSERT_TRUE(person.press(u"Tab"_s));
            unreached.removeOne(person.nextFocus());
        }
        EXPECT_EQ(unreached, QStringList());
        ASSERT_TRUE(person.hasFocusOn(section)) << "after the last comes the first";
    }
    EXPECT_TRUE(program->stop());
}

TEST_P(PersonRoad, PalmsAreFoundByTapping) {
    start({bindingAt(u"spot"_s, spot.x, spot.y, TapAction::none)});
    ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    tap(spot);
    ASSERT_TRUE(says(u"matched 'spot'"_s));
    ASSERT_TRUE(person.sees(u"→ allowed (below slider)"_s));
    pad.play(platform::PadScript().palm(spot, 0.35, 0.09).events());
    ASSERT_TRUE(says(u"REJECT (palm): "_s));
    ASSERT_TRUE(person.sees(u"→ rejected (above slider)"_s));
    person.lookAt(u"palm"_s);
    ASSERT_TRUE(person.click(u"Treat taps wider than this as palms"_s, u"slider"_s)
                && person.press(u"End"_s));
    ASSERT_TRUE(person.sees(u"25"_s));
    ASSERT_TRUE(person.press(u"Home"_s) && person.sees(u"8"_s));
    EXPECT_EQ(stored().doubleForKey(u"palmRejectionMaxAxis"_s), 8);
    EXPECT_TRUE(person.sees(u"→ rejected (above slider)"_s));
    ASSERT_TRUE(person.press(u"Right"_s) && person.sees(u"8"_s));
    EXPECT_TRUE(program->stop());
    EXPECT_EQ(stored().doubleForKey(u"palmRejectionMaxAxis"_s), 8.5);
}

TEST_P(PersonRoad, PermissionsAreGrantedAndReset) {
    dropRootsPowers();
    second.setPermissions(0);
    start({});
    ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    ASSERT_TRUE(person.click(QStringList{u"Permissions"_s}));
    ASSERT_TRUE(person.sees(u"Not Granted"_s));
    for (int attempt = 0; attempt < 3; ++attempt) {
        ASSERT_TRUE(person.click(QStringList{u"Grant + Open Settings: Accessibility"_s}));
        ASSERT_TRUE(person.isIn(u"Brimlow Access"_s));
        ASSERT_TRUE(person.press(u"Escape"_s) && person.isIn(u"Brimlow"_s));
    }
    ASSERT_TRUE(person.sees(u"Grant doesn't seem to be working"_s));
    person.lookAt(u"permissions"_s);
    second.setPermissions(0600);
    second.announceChange();
    ASSERT_TRUE(says(u"PermissionsManager: Accessibility changed to true"_s));
    EXPECT_TRUE(person.seesNo(u"Not Granted"_s));
    EXPECT_TRUE(person.seesNo(u"Grant doesn't seem to be working"_s));

    ASSERT_TRUE(person.click(QStringList{u"Reset Permissions"_s}));
    ASSERT_TRUE(person.isIn(u"Reset all permissions for Brimlow?"_s));
    ASSERT_TRUE(person.press(u"Escape"_s));
    ASSERT_TRUE(person.click(QStringList{u"Reset Permissions"_s, u"Reset & Relaunch"_s}));
    EXPECT_EQ(program->waitForEnd(5000), 0);
    EXPECT_FALSE(stored().arrayForKey(u"permissions.grantAttempts.v1"_s));
}

} // namespace
} // namespace brimlow::desktop
