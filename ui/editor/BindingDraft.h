#pragma once

#include "profiles/TapPositionMapping.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace brimlow {

/// What the user has entered about one binding and not saved yet, and the rules for it. Numbers
/// stay as they are, also those that no slider reaches, until the user changes them. Main thread.
class BindingDraft {
public:
    enum class Mode { create, edit };

    /// A new binding, with an identity of its own.
    static BindingDraft create();
    static BindingDraft edit(const TapPositionMapping& binding);

    /// In their menu's order; a binding's own action may be none of them.
    static std::span<const TapAction> offeredActions();

    /// A toggle that a stray tap could hit would switch everything off, so it wants a click.
    void chooseAction(TapAction chosen);
    /// The last of the captured samples takes the place of all there were; of none, nothing.
    void takeOver(const std::vector<TapSample>& captured, platform::Date now);

    bool wantsApplication() const {
        return action == TapAction::openApp || action == TapAction::focusWindow;
    }
    bool canSave() const;
    /// The binding to store. What does not belong to its action is gone.
    TapPositionMapping binding(platform::Date now) const;

    Mode mode = Mode::create;
    QUuid mappingId;
    QString name;
    TapAction action = TapAction::none;
    std::optional<QString> bundleId;
    QString windowTitle;
    std::optional<std::uint32_t> targetWindowID;
    std::vector<TapSample> samples;
    std::optional<platform::Date> lastRecordedAt;
    double matchRadius = 0.1;     // in trackpad units
    double minimumPressure = 0.0; // contact size
    bool requireClick = false;
    double clickForce = 0.6; // carried along; nothing edits it
};

} // namespace brimlow
