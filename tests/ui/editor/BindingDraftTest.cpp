#include "ui/editor/BindingDraft.h"

#include "tests/support/Printing.h"

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

TEST(BindingDraft, WhatDoesNotBelongToTheActionIsDropped) {
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
    }
}

TEST(BindingDraft, AnApplicationWithoutANameIsNone) {
    auto draft = BindingDraft::create();
    draft.chooseAction(TapAction::openApp);
    draft.bundleId = u""_s;
    EXPECT_FALSE(draft.canSave());
    draft.bundleId = u"x"_s;
    EXPECT_TRUE(draft.canSave());
}

TEST(BindingDraft, ChoosingTheToggleAsksForAClickOnce) {
    auto binding = focusBinding();
    binding.action = TapAction::toggleBrimlow;
    auto draft = BindingDraft::edit(binding);
    draft.chooseAction(TapAction::toggleBrimlow);
    EXPECT_FALSE(draft.requireClick) << "it was chosen already";
    draft.chooseAction(TapAction::hideAll);
    draft.chooseAction(TapAction::toggleBrimlow);
    draft.chooseAction(TapAction::hideAll);
    EXPECT_TRUE(draft.requireClick);
}

} // namespace
} // namespace brimlow::test
