#pragma once

#include "platform/Session.h"

namespace brimlow::platform {

/// Where there is no desktop that we can speak to: nothing can be done to windows, everything else
/// of the program runs.
class NoSession : public Session,
                  private Windows,
                  private Workspaces,
                  private Input,
                  private Startup {
public:
    /// `reason`: why, one clause without a full stop. `remedy`: what to do, one sentence.
    NoSession(QString reason, QString remedy)
        : reason_(std::move(reason)), remedy_(std::move(remedy)) {}

    Windows& windows() override { return *this; }
    Workspaces& workspaces() override { return *this; }
    Input& input() override { return *this; }
    Startup& startup() override { return *this; }
    Abilities abilities() override;

private:
    std::optional<std::vector<Window>> list() override { return std::nullopt; }
    std::optional<Window> find(std::uint32_t) override { return std::nullopt; }
    Outcome activate(std::uint32_t) override { return refusal(); }
    Outcome raise(std::uint32_t) override { return refusal(); }
    Outcome unhide(std::uint32_t) override { return refusal(); }
    Outcome hide(std::uint32_t) override { return refusal(); }
    Outcome close(std::uint32_t) override { return refusal(); }
    Outcome step(Direction) override { return refusal(); }
    Outcome post(const KeyEvent&) override { return refusal(); }
    QString begin(const DesktopEntry&) override { return {}; }
    void abandon(const QString&) override {}

    Outcome refusal() const { return Outcome::failure(reason_); }

    QString reason_;
    QString remedy_;
};

} // namespace brimlow::platform
