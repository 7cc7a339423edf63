#include "platform/Observable.h"

#include <gtest/gtest.h>

#include <string>

namespace brimlow::test {
namespace {

using namespace platform;

struct Model : ObservableObject {
    Published<int> value{*this, 1};
};

TEST(Observable, ObserversMayLeaveComeAndReplaceEachOtherWhileBeingTold) {
    Model model;
    std::string seen;
    Subscription first;
    Subscription second;
    Subscription third;
    first = model.observeWillChange([&] {
        seen += 'a';
        second = {};
        third = model.observeWillChange([&] { seen += 'c'; });
        first = {}; // itself, while it runs
        seen += 'A';
    });
    second = model.observeWillChange([&] { seen += 'b'; });
    model.value = 2;
    EXPECT_EQ(seen, "aA");
    model.value = 3;
    EXPECT_EQ(seen, "aAc");
}

TEST(Observable, ATellingMayNestAndASubscriptionOutliveItsObject) {
    Subscription subscription;
    Model model;
    int told = 0;
    subscription = model.observeWillChange([&] {
        if (++told < 3)
            model.value = told;
        subscription = {};
    });
    model.value = 9;
    EXPECT_EQ(told, 1 + 2) << "still attached when it assigned";
    model.value = 1;
    EXPECT_EQ(told, 3);
    subscription = Model().observeWillChange([] {});
}

} // namespace
} // namespace brimlow::test
