#include "ui/editor/BindingDraft.h"

#include "tests/support/Printing.h"
#include "ui/editor/EditorTexts.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Date;

constexpr Date now{1767355200};

TapPositionMapping focusBinding() {
    TapPositionMapping binding{
        .id = QUuid::createUuid(), .name = u" Mail\t"_s, .action = TapAction::focusWindow};
    binding.appName = u"org.example.mail"_s;
    binding.windowTitle = u"  "_s;
    binding.targetWindowID = 0xFFFFFFFF;
    binding.samples = {{0.1, 0.2}, {0.12, 0.2}, {0.1, 0.24}};
    binding.lastRecordedAt = Date{5};
    binding.matchTolerance = 3;
    binding.minimumPressure = 7;
    binding.clickForce = 0.9;
    return binding;
}

TEST(BindingDraft, UntouchedANewOneSavesWithoutAPosition) {
    const auto draft = BindingDraft::create();
    EXPECT_TRUE(draft.canSave());
    const auto binding = draft.binding(now);
    EXPECT_EQ(binding.name, u"New Binding"_s);
    EXPECT_EQ(binding.action, TapAction::switchDesktopRight);
    EXPECT_TRUE(binding.samples.empty());
    EXPECT_FALSE(binding.lastRecordedAt || binding.appName || binding.windowTitle);
    EXPECT_EQ(binding.explicitMatchRadius, 0.1);
    EXPECT_EQ(binding.matchTolerance, 1.0);
    EXPECT_EQ(binding.clickForce, 0.6);
    EXPECT_NE(binding.id, BindingDraft::create().mappingId);
}

TEST(BindingDraft, AnUntouchedBindingKeepsItsNumbersAndGetsItsRadiusFixed) {
    const auto original = focusBinding();
    const auto saved = BindingDraft::edit(original).binding(now);
    auto expected = original;
    expected.name = u"Mail"_s;
    expected.windowTitle = u""_s;
    expected.matchTolerance = 1;
    expected.explicitMatchRadius = original.matchRadius();
    EXPECT_EQ(saved, expected);
    EXPECT_EQ(saved.windowTitle, u""_s) << "empty and not absent";
}

TEST(BindingDraft, WhatDoesNotBelongToTheActionIsDropped) {
    struct Row {
        TapAction action;
        bool keepsApplication;
        bool keepsWindow;
    };
    for (const Row& row :
         {Row{TapAction::focusWindow, true, true}, Row{TapAction::openApp, true, false},
          Row{TapAction::closeWindow, false, false}, Row{TapAction::customCommand, false, false}}) {
        auto draft = BindingDraft::edit(focusBinding());
        draft.chooseAction(row.action);
        const auto binding = draft.binding(now);
        EXPECT_EQ(binding.appName.has_value(), row.keepsApplication);
        EXPECT_EQ(binding.windowTitle.has_value(), row.keepsWindow);
        EXPECT_EQ(binding.targetWindowID.has_value(), row.keepsWindow);
    }
}

TEST(BindingDraft, SavingTakesANameAndTheApplicationThatTheActionNeeds) {
    struct Row {
        QString name;
        TapAction action;
        std::optional<QString> application;
        bool canSave;
    };
    for (const Row& row :
         {Row{u"a"_s, TapAction::closeWindow, {}, true}, Row{u" \t "_s, TapAction::none, {}, false},
          Row{u"\n"_s, TapAction::none, {}, true}, Row{u"a"_s, TapAction::openApp, {}, false},
          Row{u"a"_s, TapAction::openApp, u""_s, false},
          Row{u"a"_s, TapAction::openApp, u"x"_s, true},
          Row{u"a"_s, TapAction::focusWindow, {}, false},
          Row{u"a"_s, TapAction::focusWindow, u"x"_s, true}}) {
        auto draft = BindingDraft::create();
        draft.name = row.name;
        draft.chooseAction(row.action);
        draft.bundleId = row.application;
        EXPECT_EQ(draft.canSave(), row.canSave) << row.name.toStdString();
    }
}

TEST(BindingDraft, ChoosingTheToggleAsksForAClickOnce) {
    auto binding = focusBinding();
    binding.action = TapAction::toggleBrimlow;
    EXPECT_FALSE(BindingDraft::edit(binding).requireClick) << "opening changes nothing";
    auto draft = BindingDraft::create();
    draft.chooseAction(TapAction::toggleBrimlow);
    EXPECT_TRUE(draft.requireClick);
    draft.requireClick = false;
    draft.chooseAction(TapAction::toggleBrimlow);
    EXPECT_FALSE(draft.requireClick);
    draft.requireClick = true;
    draft.chooseAction(TapAction::hideAll);
    EXPECT_TRUE(draft.requireClick);
}

TEST(BindingDraft, RecordingReplacesEverySampleByTheLast) {
    auto draft = BindingDraft::edit(focusBinding());
    draft.takeOver({}, now);
    EXPECT_EQ(draft.samples.size(), 3U);
    EXPECT_EQ(draft.lastRecordedAt, Date{5});
    draft.takeOver({{0.5, 0.5}, {0.9, 0.8}}, now);
    EXPECT_EQ(draft.samples, (std::vector<TapSample>{{0.9, 0.8}}));
    EXPECT_EQ(draft.binding(Date{9}).lastRecordedAt, now);
    draft.lastRecordedAt.reset();
    EXPECT_EQ(draft.binding(Date{9}).lastRecordedAt, Date{9});
}

TEST(EditorTexts, WordPressureFromItsLowerEnd) {
    struct Row {
        double pressure;
        QString readout;
    };
    for (const Row& row : {Row{0, u"0.00  (any touch)"_s}, Row{0.05, u"0.05  (light)"_s},
                           Row{0.2499, u"0.25  (light)"_s}, Row{0.25, u"0.25  (medium)"_s},
                           Row{0.55, u"0.55  (firm)"_s}, Row{0.85, u"0.85  (very firm)"_s},
                           Row{1.5, u"1.50  (very firm)"_s}})
        EXPECT_EQ(pressureReadout(row.pressure), row.readout);
}

TEST(EditorTexts, SayWhatIsThere) {
    EXPECT_EQ(matchRadiusReadout(0.1), u"0.100  (≈ 10% of trackpad)"_s);
    EXPECT_EQ(matchRadiusReadout(0.145), u"0.145  (≈ 14% of trackpad)"_s) << "as C rounds";
    EXPECT_EQ(recordedText({{0.14504, 0.52}}), u"Recorded at x=0.1450  y=0.5200"_s);
    EXPECT_EQ(legacyText({{0, 0}}), QString());
    EXPECT_EQ(legacyText({{0, 0}, {0, 0}, {0, 0}}),
              u"Legacy: 3 samples stored (older multi-sample binding). Re-record below to clean up "
              u"to a single position."_s);
    EXPECT_EQ(countdownText(1), u"Recording starts in 1 second…"_s);
    EXPECT_EQ(countdownText(3), u"Recording starts in 3 seconds…"_s);
    EXPECT_FALSE(clickWarning(TapAction::toggleBrimlow, false).isEmpty());
    EXPECT_TRUE(clickWarning(TapAction::toggleBrimlow, true).isEmpty());
    EXPECT_TRUE(clickWarning(TapAction::closeWindow, false).isEmpty());
}

} // namespace
} // namespace brimlow::test
