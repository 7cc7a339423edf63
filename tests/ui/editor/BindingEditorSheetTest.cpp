#include "ui/editor/BindingEditorSheet.h"

#include "tests/support/TestPlatform.h"
#include "ui/style/ApplicationStyle.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

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
    QPushButton* button(const QString& text) {
        for (auto* each : sheet->findChildren<QPushButton*>())
            if (each->text() == text && each->isVisible())
                return each;
        return nullptr;
    }
    bool shows(const QString& text) {
        for (const auto* label : sheet->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    }
    void choose(TapAction action) {
        auto* menu = named<QComboBox>(u"Action"_s);
        const auto offered = BindingDraft::offeredActions();
        menu->setFocus();
        QTest::keyClick(menu, Qt::Key_Home);
        for (std::size_t at = 0; offered[at] != action; ++at)
            QTest::keyClick(menu, Qt::Key_Down);
    }
};

TEST_F(Editor, AnUntouchedNewBindingIsSavedByReturn) {
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
    EXPECT_EQ(stored().name, u"Corner"_s);
    EXPECT_EQ(stored().action, TapAction::switchDesktopRight);
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
    EXPECT_TRUE(shows(u"Recorded at x=0.2500  y=0.7500"_s));
    EXPECT_TRUE(shows(u"Recorded"_s));
    EXPECT_FALSE(recorder.isComplete);
    EXPECT_EQ(stored().samples.size(), 3U) << "nothing is stored before Save";
    button(u"Save"_s)->click();
    EXPECT_EQ(stored().samples, (std::vector<TapSample>{{0.25, 0.75}}));
    EXPECT_EQ(stored().lastRecordedAt, world.time.wallClock());
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

TEST_F(Editor, NumbersThatNoSliderReachesStayUntilItIsMoved) {
    const auto binding = add(TapAction::closeWindow);
    open(BindingDraft::edit(binding));
    EXPECT_TRUE(shows(u"0.900  (≈ 90% of trackpad)"_s));
    sheet->save();
    EXPECT_EQ(stored().explicitMatchRadius, 0.9);
    EXPECT_EQ(stored().minimumPressure, 7);

    open(BindingDraft::edit(binding));
    QTest::keyClick(named<QSlider>(u"Match Radius"_s), Qt::Key_Left);
    QTest::keyClick(named<QSlider>(u"Required Tap Pressure"_s), Qt::Key_Home);
    EXPECT_TRUE(shows(u"0.295  (≈ 30% of trackpad)"_s));
    EXPECT_TRUE(shows(u"0.00  (any touch)"_s));
    sheet->save();
    EXPECT_EQ(stored().explicitMatchRadius, 0.295);
    EXPECT_EQ(stored().minimumPressure, 0);
}

TEST_F(Editor, ChoosingTheToggleAsksForAClickAndWarnsWithoutOne) {
    open(BindingDraft::create());
    auto* click = named<QCheckBox>(u"Require trackpad click"_s);
    EXPECT_FALSE(click->isChecked());
    choose(TapAction::toggleBrimlow);
    EXPECT_TRUE(click->isChecked());
    QTest::keyClick(click, Qt::Key_Space);
    EXPECT_FALSE(click->isChecked());
    EXPECT_TRUE(shows(u"Heads up: with click off, a stray tap on this spot can disable tap "
                      u"detection. Tapping the same spot again re-enables it — even while "
                      u"detection is off, Toggle Brimlow stays live."_s));
}

TEST_F(Editor, AnApplicationIsAskedForWhereOneIsNeeded) {
    open(BindingDraft::create());
    choose(TapAction::openApp);
    EXPECT_TRUE(shows(u"App to Open"_s));
    EXPECT_FALSE(shows(u"Target Window"_s));
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    choose(TapAction::focusWindow);
    EXPECT_TRUE(shows(u"App"_s));
    EXPECT_TRUE(shows(u"Target Window"_s));
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    choose(TapAction::hideAll);
    EXPECT_FALSE(shows(u"App"_s));
    EXPECT_TRUE(button(u"Save"_s)->isEnabled());
}

TEST_F(Editor, TheKeyboardReachesEverythingAndAScreenReaderNamesIt) {
    open(BindingDraft::edit(add(TapAction::focusWindow)));
    std::vector<QWidget*> reached;
    for (QWidget* at = QApplication::focusWidget();
         at && std::ranges::find(reached, at) == reached.end(); at = QApplication::focusWidget()) {
        reached.push_back(at);
        const auto* accessible = QAccessible::queryAccessibleInterface(at);
        ASSERT_TRUE(accessible);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
            << at->metaObject()->className();
        QTest::keyClick(at, Qt::Key_Tab);
    }
    for (auto* each : sheet->findChildren<QWidget*>())
        if (each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus)) {
            EXPECT_NE(std::ranges::find(reached, each), reached.end())
                << each->metaObject()->className() << ' ' << each->accessibleName().toStdString();
        }
    EXPECT_GE(reached.size(), 10U);
}

TEST_F(Editor, TextOfAnySizeAndLengthFits) {
    TapPositionMapping binding{.id = QUuid::createUuid(), .action = TapAction::openApp};
    binding.name = QString(10'000, u'W') + u"\nשלום e\u0301"_s;
    binding.appName = QString(10'000, u'x');
    for (int at = 0; at < 3000; ++at)
        binding.samples.push_back({at / 3000.0, 0.5});
    binding.explicitMatchRadius = 1e300;
    store.add(binding);
    open(BindingDraft::edit(binding));
    EXPECT_EQ(sheet->width(), 520);
    sheet->save();
    EXPECT_EQ(stored(), sheet->draft().binding(world.time.wallClock())) << "nothing of it was cut";

    style::ApplicationStyle large({.textScale = 2});
    open(BindingDraft::create());
    for (auto* each : sheet->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(each);
        if (!each->isVisible() || !(label || qobject_cast<QAbstractButton*>(each)))
            continue;
        EXPECT_GE(each->height(), label && label->wordWrap() ? label->heightForWidth(label->width())
                                                             : each->minimumSizeHint().height())
            << each->metaObject()->className() << ' '
            << (label ? label->text().toStdString() : std::string());
    }
}

TEST_F(Editor, AnActionThatIsNotOfferedSurvivesAndDeleteNeedsNoQuestion) {
    const auto binding = add(TapAction::customCommand);
    open(BindingDraft::edit(binding));
    sheet->save();
    EXPECT_EQ(stored().action, TapAction::customCommand);
    open(BindingDraft::edit(binding));
    button(u"Delete"_s)->click();
    EXPECT_EQ(count(), 0U);
    EXPECT_EQ(dismissals, 2);
}

} // namespace
} // namespace brimlow::test
