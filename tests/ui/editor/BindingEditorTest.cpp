#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/editor/BindingEditorSheet.h"
#include "ui/editor/EditorTexts.h"
#include "ui/style/ApplicationStyle.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

constexpr platform::Date now{1767355200};

TapPositionMapping focusBinding() {
    TapPositionMapping binding{
        .id = QUuid::createUuid(), .name = u" Mail\t"_s, .action = TapAction::focusWindow};
    binding.appName = u"org.example.mail"_s;
    binding.windowTitle = u"  "_s;
    binding.targetWindowID = 0xFFFFFFFF;
    binding.samples = {{0.1, 0.2}, {0.12, 0.2}, {0.1, 0.24}};
    binding.lastRecordedAt = platform::Date{5};
    binding.matchTolerance = 3;
    binding.minimumPressure = 7;
    binding.clickForce = 0.9;
    return binding;
}

TEST(BindingDraft, AnUntouchedBindingKeepsItsNumbersAndGetsItsRadiusFixed) {
    auto original = focusBinding();
    auto expected = original;
    expected.name = u"Mail"_s;
    expected.windowTitle = u""_s; // and not absent
    expected.matchTolerance = 1;
    expected.explicitMatchRadius = original.matchRadius();
    EXPECT_EQ(BindingDraft::edit(original).binding(now), expected);
    original.lastRecordedAt.reset();
    EXPECT_EQ(BindingDraft::edit(original).binding(now).lastRecordedAt, now);
}

TEST(BindingDraft, HasAnApplicationAndAWindowWhereTheActionNeedsThem) {
    struct Row {
        TapAction action;
        bool keepsApplication;
        bool keepsWindow;
    };
    for (const auto& [action, keepsApplication, keepsWindow] :
         {Row{TapAction::focusWindow, true, true}, Row{TapAction::openApp, true, false},
          Row{TapAction::closeWindow, false, false}}) {
        auto draft = BindingDraft::edit(focusBinding());
        draft.chooseAction(action);
        const auto binding = draft.binding(now);
        EXPECT_EQ(binding.appName.has_value(), keepsApplication);
        EXPECT_EQ(binding.windowTitle.has_value(), keepsWindow);
        EXPECT_EQ(binding.targetWindowID.has_value(), keepsWindow);
        draft.bundleId = u""_s;
        EXPECT_EQ(draft.canSave(), !keepsApplication);
    }
}

TEST(EditorTexts, WordPressureFromItsLowerEnd) {
    EXPECT_EQ(pressureReadout(0.0499), u"0.05  (any touch)"_s);
    EXPECT_EQ(pressureReadout(0.05), u"0.05  (light)"_s);
    EXPECT_EQ(pressureReadout(0.25), u"0.25  (medium)"_s);
    EXPECT_EQ(pressureReadout(0.55), u"0.55  (firm)"_s);
    EXPECT_EQ(pressureReadout(0.85), u"0.85  (very firm)"_s);
}

/// The sheet over a store with one binding, as a person meets it: by what it shows and its keys.
struct Editor : testing::Test {
    TestPlatform world;
    TapPositionMappings store{0, world.defaults};
    PositionRecorder recorder;
    MultitouchManager trackpad;
    std::unique_ptr<BindingEditorSheet> sheet;
    int dismissals = 0;

    TapPositionMapping stored() const { return store.activeProfile()->bindings.at(0); }
    std::size_t count() const { return store.activeProfile()->bindings.size(); }

    TapPositionMapping add(TapAction action) {
        TapPositionMapping binding{.id = QUuid::createUuid(), .name = u"Spot"_s, .action = action};
        binding.samples = {{0.1, 0.2}, {0.12, 0.2}, {0.1, 0.24}};
        binding.explicitMatchRadius = 0.9; // beyond what its slider reaches
        binding.minimumPressure = 7;
        store.add(binding);
        return binding;
    }
    void open(BindingDraft draft) {
        sheet = std::make_unique<BindingEditorSheet>(std::move(draft), store, recorder, trackpad,
                                                     [this] { ++dismissals; });
        sheet->show();
        sheet->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(sheet.get()));
    }
    template<typename Widget>
    Widget* named(const QString& name) {
        for (auto* each : sheet->findChildren<Widget*>())
            if (each->accessibleName() == name)
                return each;
        return nullptr;
    }
    QPushButton* button(const QString& text) { return shownButton(*sheet, text); }
    bool shows(const QString& text) { return shownTexts(*sheet).contains(text); }
    void choose(TapAction action) {
        auto* menu = named<QComboBox>(u"Action"_s);
        Q_EMIT menu->activated(menu->findText(displayName(action)));
    }
};

TEST_F(Editor, ANewBindingNeedsNoMoreThanANameAndReturn) {
    open(BindingDraft::create());
    EXPECT_EQ(button(u"Delete"_s), nullptr);
    auto* name = named<QLineEdit>(u"Name"_s);
    EXPECT_TRUE(name->hasFocus());
    name->selectAll();
    QTest::keyClicks(name, u"  "_s);
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(count(), 0U);
    QTest::keyClicks(name, u"Corner "_s);
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_EQ(count(), 1U);
    EXPECT_FALSE(stored().id.isNull());
    EXPECT_EQ(stored().name, u"Corner"_s);
    EXPECT_EQ(stored().action, TapAction::switchDesktopRight);
    EXPECT_EQ(stored().explicitMatchRadius, 0.1);
    EXPECT_FALSE(stored().lastRecordedAt) << "nothing was recorded";
    EXPECT_EQ(dismissals, 1);
}

TEST_F(Editor, RecordingTakesTheNextTapAndNothingElse) {
    open(BindingDraft::edit(add(TapAction::closeWindow)));
    EXPECT_TRUE(shows(u"Legacy: 3 samples stored (older multi-sample binding). Re-record below to "
                      u"clean up to a single position."_s));
    QTest::keyClick(button(u"Re-record Position"_s), Qt::Key_Space);
    world.time.run();
    EXPECT_TRUE(shows(u"Recording starts in 3 seconds…"_s));
    EXPECT_EQ(button(u"Re-record Position"_s), nullptr);
    world.time.advance(2);
    EXPECT_TRUE(shows(u"Recording starts in 1 second…"_s));
    world.time.advance(1);
    EXPECT_TRUE(shows(u"Tap your laptop NOW (one tap)"_s));
    recorder.captureTap(0.25, 0.75);
    world.time.run();
    EXPECT_TRUE(shows(u"Recorded"_s));
    EXPECT_TRUE(shows(u"Recorded at x=0.2500  y=0.7500"_s));
    EXPECT_FALSE(recorder.isComplete);
    EXPECT_EQ(stored().samples.size(), 3U) << "nothing is stored before Save";
    const auto recordedAt = world.time.wallClock();
    world.time.advance(5);
    button(u"Save"_s)->click();
    EXPECT_EQ(stored().samples, (std::vector<TapSample>{{0.25, 0.75}}));
    EXPECT_EQ(stored().lastRecordedAt, recordedAt);
}

TEST_F(Editor, HoweverItGoesAwayNoRecordingGoesOnAndNothingIsStored) {
    const auto binding = add(TapAction::closeWindow);
    for (const bool byKey : {true, false}) {
        open(BindingDraft::edit(binding));
        button(u"Re-record Position"_s)->click();
        world.time.advance(3.5);
        EXPECT_TRUE(recorder.isRecording);
        if (byKey)
            QTest::keyClick(sheet.get(), Qt::Key_Escape);
        else
            sheet.reset();
        EXPECT_FALSE(recorder.isRecording);
    }
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(stored(), binding);
}

TEST_F(Editor, WhatItDoesNotOfferStaysUntilItIsChanged) {
    const auto binding = add(TapAction::customCommand);
    open(BindingDraft::edit(binding));
    EXPECT_TRUE(shows(u"0.900  (≈ 90% of trackpad)"_s));
    sheet->save();
    auto expected = binding;
    expected.lastRecordedAt = world.time.wallClock();
    EXPECT_EQ(stored(), expected);

    open(BindingDraft::edit(binding));
    QTest::keyClick(named<QSlider>(u"Match Radius"_s), Qt::Key_Left);
    QTest::keyClick(named<QSlider>(u"Required Tap Pressure"_s), Qt::Key_Home);
    EXPECT_TRUE(shows(u"0.295  (≈ 30% of trackpad)"_s));
    EXPECT_TRUE(shows(u"0.00  (any touch)"_s));
    sheet->save();
    EXPECT_EQ(stored().explicitMatchRadius, 0.295);
    EXPECT_EQ(stored().minimumPressure, 0);

    open(BindingDraft::edit(binding));
    button(u"Delete"_s)->click();
    EXPECT_EQ(count(), 0U);
    EXPECT_EQ(dismissals, 3);
}

TEST_F(Editor, TheActionDecidesWhatElseIsAskedFor) {
    const QString warning = u"Heads up: with click off, a stray tap on this spot can disable tap "
                            u"detection. Tapping the same spot again re-enables it — even while "
                            u"detection is off, Toggle Brimlow stays live."_s;
    open(BindingDraft::create());
    choose(TapAction::openApp);
    EXPECT_TRUE(shows(u"App to Open"_s));
    EXPECT_FALSE(shows(u"Target Window"_s));
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    choose(TapAction::focusWindow);
    EXPECT_TRUE(shows(u"App"_s));
    EXPECT_TRUE(shows(u"Target Window"_s));
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    auto* click = named<QCheckBox>(u"Require trackpad click"_s);
    EXPECT_FALSE(click->isChecked());
    choose(TapAction::toggleBrimlow);
    EXPECT_FALSE(shows(u"App"_s));
    EXPECT_TRUE(button(u"Save"_s)->isEnabled());
    EXPECT_TRUE(click->isChecked());
    EXPECT_FALSE(shows(warning));
    QTest::keyClick(click, Qt::Key_Space);
    choose(TapAction::toggleBrimlow);
    EXPECT_FALSE(click->isChecked()) << "it was chosen already";
    EXPECT_TRUE(shows(warning));
    choose(TapAction::hideAll);
    EXPECT_FALSE(shows(warning));
}

TEST_F(Editor, TheKeyboardReachesEverythingAndAScreenReaderNamesIt) {
    open(BindingDraft::edit(add(TapAction::focusWindow)));
    std::set<QWidget*> reached;
    while (reached.insert(QApplication::focusWidget()).second)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    for (auto* each : sheet->findChildren<QWidget*>()) {
        if (!each->isVisible() || !each->isEnabled() || !(each->focusPolicy() & Qt::TabFocus))
            continue;
        const auto name = QAccessible::queryAccessibleInterface(each)->text(QAccessible::Name);
        EXPECT_NE(name, QString()) << each->metaObject()->className();
        EXPECT_TRUE(reached.contains(each)) << name.toStdString();
    }
    EXPECT_GE(reached.size(), 10U);
}

TEST_F(Editor, TextOfAnySizeAndLengthFits) {
    TapPositionMapping binding{.id = QUuid::createUuid(), .action = TapAction::openApp};
    binding.name = QString(10'000, u'W') + u"\nשלום e\u0301"_s;
    binding.appName = QString(10'000, u'x');
    binding.explicitMatchRadius = 1e300;
    store.add(binding);
    open(BindingDraft::edit(binding));
    EXPECT_EQ(sheet->width(), 520);
    sheet->save();
    EXPECT_EQ(stored(), sheet->draft().binding(world.time.wallClock())) << "nothing of it was cut";

    style::ApplicationStyle large({.textScale = 2});
    open(BindingDraft::create());
    for (auto* each : sheet->findChildren<QLabel*>())
        if (each->isVisible()) {
            EXPECT_GE(each->height(), each->wordWrap() ? each->heightForWidth(each->width())
                                                       : each->minimumSizeHint().height())
                << each->text().toStdString();
        }
}

} // namespace
} // namespace brimlow::test
