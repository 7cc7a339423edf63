#pragma once

#include "platform/Session.h"

#include <QStringList>

#include <functional>
#include <map>

namespace brimlow::platform {

/// A described world of windows and workspaces, with a journal of all that was done to it.
class SimulatedSession final : public Session,
                               private Windows,
                               private Workspaces,
                               private Input,
                               private Startup {
public:
    // The world's verbs.

    /// Opens a window on the current workspace, in front; returns its number.
    std::uint32_t openWindow(const QString& applicationId, pid_t pid, const QString& title);
    /// For what openWindow cannot say. The reference is valid until the next window opens or
    /// closes.
    Window& window(std::uint32_t number);
    void setWorkspaces(int count, int current);
    void setName(const QString& name) { name_ = name; }
    void setTrusted(bool trusted) { trusted_ = trusted; }
    void setReadsTitles(bool readsTitles) { readsTitles_ = readsTitles; }
    void failNextWindowList() { failWindowListAfter(0); }
    /// The list fails once, after it was read `times` more times.
    void failWindowListAfter(int times) { listsUntilFailure_ = times; }
    /// Requests to hide windows of this application are refused from now on.
    void refuseHiding(const QString& applicationId) { unhideable_ = applicationId; }

    int currentWorkspace() const { return currentWorkspace_; }
    /// What was done since the last call, one entry each, in order.
    QStringList takeJournal() { return std::exchange(journal_, {}); }

    Windows& windows() override { return *this; }
    Workspaces& workspaces() override { return *this; }
    Input& input() override { return *this; }
    Startup& startup() override { return *this; }
    Abilities abilities() override;

private:
    std::optional<std::vector<Window>> list() override;
    std::optional<Window> find(std::uint32_t number) override;
    Outcome activate(std::uint32_t number) override;
    Outcome raise(std::uint32_t number) override;
    Outcome unhide(std::uint32_t number) override;
    Outcome hide(std::uint32_t number) override;
    Outcome close(std::uint32_t number) override;
    Outcome step(Direction direction) override;
    Outcome post(const KeyEvent& event) override;
    QString begin(const DesktopEntry& application) override;
    void abandon(const QString& token) override;

    /// Journals "<verb> <title>" and does it to the window, if there is one.
    Outcome change(const QString& verb, std::uint32_t number,
                   const std::function<void(Window&)>& edit);
    void focus(std::uint32_t number);
    void toTop(std::uint32_t number);

    std::vector<Window> windows_; // bottom to top
    std::uint32_t lastNumber_ = 0x1400000;
    int workspaceCount_ = 4;
    int currentWorkspace_ = 0;
    QString name_ = QStringLiteral("simulated");
    bool trusted_ = true;
    bool readsTitles_ = true;
    int listsUntilFailure_ = -1;
    QString unhideable_;
    QStringList journal_;
};

} // namespace brimlow::platform
