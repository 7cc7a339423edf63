#pragma once

#include "platform/simulated/SimulatedApplications.h"
#include "platform/x11/X11Session.h"
#include "tools/desktop/PrivateDesktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace brimlow::desktop {

/// As they call themselves.
inline std::string nameOf(const testing::TestParamInfo<WindowManager>& info) {
    constexpr std::array names{"none", "Openbox", "Xfwm4", "KWin"};
    return names.at(static_cast<std::size_t>(info.param));
}

inline const auto managers =
    testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::kwin);

// How tests are listed.
inline void PrintTo(WindowManager manager, std::ostream* out) {
    *out << nameOf({manager, 0});
}

/// A desktop under one of the window managers, and our session on it.
class X11Desktop : public testing::TestWithParam<WindowManager> {
protected:
    void SetUp() override {
        using namespace Qt::StringLiterals;
        ASSERT_TRUE(desktop.start()) << desktop.error().toStdString();
        platform::DesktopEntry terminal;
        terminal.id = u"debian-xterm"_s;
        terminal.startupWmClass = u"XTerm"_s;
        applications.install(terminal);
        QString reason;
        session = platform::X11Session::connect(desktop.displayName(), applications, reason);
        ASSERT_TRUE(session) << reason.toStdString();
    }

    std::uint32_t openTerminal(const QString& title) {
        using namespace Qt::StringLiterals;
        const auto number = desktop.openWindow(u"xterm"_s, {u"-T"_s, title});
        EXPECT_NE(number, 0U) << desktop.error().toStdString();
        return number;
    }

    /// The window as our session lists it; absent when it does not.
    std::optional<platform::Window> listed(std::uint32_t number) {
        const auto windows = session->windows().list();
        if (!windows)
            return std::nullopt;
        const auto found = std::ranges::find(*windows, number, &platform::Window::number);
        return found == windows->end() ? std::nullopt : std::optional(*found);
    }

    /// Once the window manager has got to know of a window.
    bool becomesListed(std::uint32_t number) {
        return desktop.waitFor([&](const DesktopState&) { return listed(number).has_value(); });
    }
    bool workspaceBecomes(int number) {
        return desktop.waitFor(
            [&](const DesktopState& now) { return now.currentWorkspace == number; });
    }
    bool becomesActive(std::uint32_t number) {
        return desktop.waitFor([&](const DesktopState& now) { return now.activeWindow == number; });
    }
    bool becomes(std::uint32_t number, bool DesktopWindow::*property, bool value) {
        return desktop.waitFor([&](const DesktopState& now) {
            const auto* window = now.window(number);
            return window && window->*property == value;
        });
    }
    bool disappears(std::uint32_t number) {
        return desktop.waitFor(
            [&](const DesktopState& now) { return now.window(number) == nullptr; });
    }

    PrivateDesktop desktop{GetParam()};
    platform::SimulatedApplications applications{desktop.home()};
    std::unique_ptr<platform::X11Session> session;
};

} // namespace brimlow::desktop
