#pragma once

#include <QJsonValue>
#include <QString>

#include <array>
#include <optional>

namespace brimlow {

/// What a tap on a binding does.
enum class TapAction {
    none,
    switchDesktopLeft,
    switchDesktopRight,
    closeWindow,
    openApp,
    focusWindow,
    hideAll,
    toggleBrimlow,
    customCommand,
};

/// Every action, in the order of their declaration.
inline constexpr std::array allTapActions{
    TapAction::none,        TapAction::switchDesktopLeft, TapAction::switchDesktopRight,
    TapAction::closeWindow, TapAction::openApp,           TapAction::focusWindow,
    TapAction::hideAll,     TapAction::toggleBrimlow,     TapAction::customCommand,
};

/// The name by which files know the action; also its identity.
QString rawValue(TapAction action);
/// What the user reads.
QString displayName(TapAction action);
/// The name of its symbol image.
QString iconName(TapAction action);

/// Any text is an action, one that no action is called by is `none`: a file that names an action
/// of a later version still loads, with the binding inert. None if `value` is no text.
std::optional<TapAction> tapActionFromJson(const QJsonValue& value);

} // namespace brimlow
