#pragma once

#include <QChar>
#include <QString>

#include <functional>
#include <vector>

namespace brimlow {

class AppSettings;
class TapPositionMappings;

/// One line of the menu, for whatever shows it.
struct MenuItem {
    enum class Kind {
        button,
        choice, // one of several, of which one is on
        toggle,
        header,
        divider,
    };

    Kind kind = Kind::divider;
    QString title = {};       // plain text
    bool isOn = false;        // of a choice or a toggle
    QChar keyEquivalent = {}; // with the command key, which is Ctrl here; null for none
    std::function<void()> action = {};

    /// Whether they look the same.
    bool operator==(const MenuItem& other) const {
        return kind == other.kind && title == other.title && isOn == other.isOn
               && keyEquivalent == other.keyEquivalent;
    }
};

/// What the menu does beyond its models.
struct MenuActions {
    std::function<void()> showBrimlow;
    std::function<void()> checkForUpdates; // null: there is no such item
    std::function<void()> quit;
};

/// The menu as it stands, from top to bottom. Both models outlive its items. Main thread.
std::vector<MenuItem> brimlowMenu(AppSettings& settings, TapPositionMappings& positionMappings,
                                  const MenuActions& actions);

} // namespace brimlow
