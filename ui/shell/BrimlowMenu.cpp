#include "ui/shell/BrimlowMenu.h"

#include "engine/AppSettings.h"
#include "profiles/TapPositionMappings.h"
#include "ui/shell/ProfileHotkey.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using Kind = MenuItem::Kind;

std::vector<MenuItem> brimlowMenu(AppSettings& settings, TapPositionMappings& positionMappings,
                                  const MenuActions& actions) {
    std::vector<MenuItem> items;
    const auto divide = [&items] { items.push_back({.kind = Kind::divider}); };
    items.push_back({.kind = Kind::button,
                     .title = u"Show Brimlow"_s,
                     .keyEquivalent = u'O',
                     .action = actions.showBrimlow});
    divide();
    items.push_back({.kind = Kind::header, .title = u"Profiles"_s});
    int index = 0;
    for (const TapProfile& profile : positionMappings.profiles.get())
        items.push_back(
            {.kind = Kind::choice,
             .title = profile.name,
             .isOn = profile.id == positionMappings.activeProfileId.get(),
             .keyEquivalent = ProfileHotkey{index++}.keyEquivalent(),
             .action = [&positionMappings, id = profile.id] { positionMappings.switchTo(id); }});
    divide();
    items.push_back({.kind = Kind::toggle,
                     .title = u"Tap Gestures"_s,
                     .isOn = settings.tapEnabled(),
                     .action = [&settings] { settings.setTapEnabled(!settings.tapEnabled()); }});
    if (actions.checkForUpdates)
        items.push_back({.kind = Kind::button,
                         .title = u"Check for Updates…"_s,
                         .action = actions.checkForUpdates});
    divide();
    items.push_back({.kind = Kind::button,
                     .title = u"Quit Brimlow"_s,
                     .keyEquivalent = u'Q',
                     .action = actions.quit});
    return items;
}

} // namespace brimlow
