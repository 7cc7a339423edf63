#pragma once

#include <QString>

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow::platform {

struct DesktopEntry;

/// What came of a request to the session.
struct Outcome {
    bool done = false;
    QString reason; // why not, one clause a user understands; empty when done

    static Outcome success() { return {true, {}}; }
    static Outcome failure(QString why) { return {false, std::move(why)}; }
    explicit operator bool() const { return done; }
};

/// One window of one application, on whatever workspace. Desktops, panels and docks are no windows.
struct Window {
    std::uint32_t number = 0;     // X11 window id, or the session's own stable number
    pid_t ownerPid = 0;           // 0 when it cannot be told
    QString title;                // empty when it has none, or when it cannot be read
    QString applicationId;        // desktop-file id without ".desktop"
    std::optional<int> workspace; // from 0; absent when it is on all of them
    bool hidden = false;          // minimised
    bool active = false;          // has the focus
    bool inTaskList = true;       // an ordinary window, as opposed to a helper's
    std::uint32_t age = 0;        // lower in windows that were opened earlier
};

/// All windows of all workspaces. Main thread.
class Windows {
public:
    virtual ~Windows() = default;

    /// Bottom to top as they are stacked; absent when the session cannot be asked. What was asked
    /// for through this object counts as done.
    virtual std::optional<std::vector<Window>> list() = 0;
    /// One of them, without asking for the others; absent when there is no such window.
    virtual std::optional<Window> find(std::uint32_t number) = 0;
    /// Un-hides, goes to its workspace, raises it and gives it the focus.
    virtual Outcome activate(std::uint32_t number) = 0;
    virtual Outcome raise(std::uint32_t number) = 0;
    /// Under some window managers (KWin, Mutter) the window stays hidden until it is activated.
    virtual Outcome unhide(std::uint32_t number) = 0;
    virtual Outcome hide(std::uint32_t number) = 0;
    /// Asks politely: the application may put up a dialog instead.
    virtual Outcome close(std::uint32_t number) = 0;
};

enum class Direction { left, right };

/// Main thread.
class Workspaces {
public:
    virtual ~Workspaces() = default;

    /// One to the left or right. At the ends nothing happens, and that is no failure.
    virtual Outcome step(Direction direction) = 0;
};

/// A key press or release as a program would post it.
struct KeyEvent {
    std::uint16_t keyCode = 0; // virtual key code of the ANSI layout; 13 is W
    bool down = false;
    std::uint64_t flags = 0; // modifier mask; 0x100000 is Command
};

/// Main thread.
class Input {
public:
    virtual ~Input() = default;

    /// Keys whose meaning the session knows (Command-W closes the front window) are done as what
    /// they mean; others are refused.
    virtual Outcome post(const KeyEvent& event) = 0;
};

/// Announces programs that are about to start, so that their first window gets the focus. Main
/// thread.
class Startup {
public:
    virtual ~Startup() = default;

    /// A token to hand to the program; empty where the session gives none.
    virtual QString begin(const DesktopEntry& application) = 0;
    /// The program could not be started after all.
    virtual void abandon(const QString& token) = 0;
};

/// What a session can do, or why it cannot, in words for its user.
struct Abilities {
    QString sessionName;     // "X11 (Openbox)"
    Outcome controlsWindows; // to list, activate, hide and close windows of others
    Outcome readsTitles;
    Outcome switchesWorkspaces;
    QString remedy; // what to do about what is missing, one sentence; empty when nothing is

    /// What keeps windows from being controlled and what to do about it; empty when nothing does.
    QString complaint() const;
};

/// One desktop session. All of it runs on the main thread; nothing here throws.
class Session {
public:
    virtual ~Session() = default;

    virtual Windows& windows() = 0;
    virtual Workspaces& workspaces() = 0;
    virtual Input& input() = 0;
    virtual Startup& startup() = 0;
    /// Asked anew each time: window managers come and go.
    virtual Abilities abilities() = 0;
};

} // namespace brimlow::platform
