#include "platform/x11/X11PendingRequest.h"

#include <gtest/gtest.h>

namespace brimlow::platform {
namespace {

using std::chrono::milliseconds;

constexpr X11PendingRequest::Time start{};
constexpr auto soon = start + milliseconds(5);

// Bottom to top, the active one with a minus.
std::vector<Window> desktop(std::initializer_list<int> numbers) {
    std::vector<Window> windows;
    for (const int number : numbers) {
        windows.emplace_back().number = static_cast<std::uint32_t>(std::abs(number));
        windows.back().active = number < 0;
    }
    return windows;
}

std::vector<int> shown(X11PendingRequest& pending, std::initializer_list<int> numbers,
                       X11PendingRequest::Time now) {
    auto windows = desktop(numbers);
    pending.applyTo(windows, now);
    std::vector<int> result;
    result.reserve(windows.size());
    for (const auto& window : windows)
        result.push_back(window.active ? -static_cast<int>(window.number)
                                       : static_cast<int>(window.number));
    return result;
}

using Numbers = std::vector<int>;

TEST(X11PendingRequest, ShowsTheWindowOnTopAndActiveUntilTheServerAgrees) {
    X11PendingRequest pending;
    pending.activated(1, start);
    EXPECT_EQ(shown(pending, {1, 2, -3}, soon), (Numbers{2, 3, -1}));
    EXPECT_EQ(shown(pending, {2, -3, 1}, soon), (Numbers{2, 3, -1}));
    EXPECT_EQ(shown(pending, {2, 3, -1}, soon), (Numbers{2, 3, -1}));
    EXPECT_EQ(shown(pending, {1, 2, -3}, soon), (Numbers{1, 2, -3})); // the user's own doing

    pending.activated(1, start);
    pending.raised(2, start);
    EXPECT_EQ(shown(pending, {1, 2, -3}, soon), (Numbers{-1, 3, 2}));
}

TEST(X11PendingRequest, ForgetsWhatIsOverAndWhatHasGone) {
    X11PendingRequest pending;
    pending.activated(1, start);
    EXPECT_EQ(shown(pending, {1, -2}, start + milliseconds(200)), (Numbers{2, -1}));
    EXPECT_EQ(shown(pending, {1, -2}, start + milliseconds(201)), (Numbers{1, -2}));
    EXPECT_EQ(shown(pending, {1, -2}, soon), (Numbers{1, -2}));

    pending.raised(1, start);
    EXPECT_EQ(shown(pending, {-2}, soon), Numbers{-2});
    EXPECT_EQ(shown(pending, {}, soon), Numbers{});
    EXPECT_EQ(shown(pending, {1, -2}, soon), (Numbers{1, -2})); // the number is another's now
}

} // namespace
} // namespace brimlow::platform
