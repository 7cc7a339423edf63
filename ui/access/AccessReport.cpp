#include "ui/access/AccessReport.h"

#include "platform/InputDevices.h"
#include "platform/Platform.h"
#include "platform/Session.h"
#include "profiles/TapAction.h"

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::Abilities;
using platform::Outcome;
using platform::Platform;
using platform::Trackpad;
using platform::TrackpadRemedy;

namespace {

QString sentence(const QString& clause) {
    return clause.left(1).toUpper() + clause.mid(1) + u'.';
}

QString whatHelps(TrackpadRemedy remedy) {
    switch (remedy) {
    case TrackpadRemedy::none:
        break;
    case TrackpadRemedy::installRule:
        return u"Allow it once, and whoever sits at the screen may read trackpads and mice, never "
               u"keyboards."_s;
    case TrackpadRemedy::applyRule:
        return u"The rule that allows it is installed, but was not applied here yet. Allow it now, "
               u"plug the trackpad in again, or restart."_s;
    case TrackpadRemedy::reconnect:
        return u"Plug the trackpad in again, or restart."_s;
    }
    return {};
}

/// One problem for all trackpads that the same remedy mends.
void addProblem(AccessReport& report, const std::vector<Trackpad>& trackpads,
                TrackpadRemedy remedy) {
    QStringList names;
    QStringList refusals;
    for (const Trackpad& trackpad : trackpads) {
        if (trackpad.complaint.isEmpty() || trackpad.remedy != remedy)
            continue;
        names << u"“%1”"_s.arg(trackpad.name);
        refusals << u"%1 (%2)"_s.arg(trackpad.node, trackpad.complaint);
    }
    if (names.isEmpty())
        return;
    report.problems.push_back({.heading = u"Brimlow cannot read "_s + names.join(u" and "_s),
                               .text = u"Your system keeps %1 from Brimlow. %2"_s.arg(
                                   refusals.join(u" and "_s), whatHelps(remedy)),
                               .ruleHelps = remedy != TrackpadRemedy::reconnect});
}

AccessItem item(const QString& symbol, const QString& name, const Outcome& outcome,
                const QString& meaning) {
    return {symbol, name, outcome.done, outcome ? meaning : sentence(outcome.reason)};
}

/// Whether every trackpad can be read and windows can be controlled: no action runs without.
Outcome accessibility(const std::vector<Trackpad>& trackpads, const Abilities& abilities) {
    for (const Trackpad& trackpad : trackpads)
        if (!trackpad.complaint.isEmpty())
            return Outcome::failure(u"“%1” cannot be read"_s.arg(trackpad.name));
    return abilities.controlsWindows;
}

Outcome whetherWorks(TapAction action, const Abilities& abilities, const Outcome& accessibility) {
    if (action == TapAction::toggleBrimlow)
        return Outcome::success();
    if (!accessibility)
        return accessibility;
    if (action == TapAction::switchDesktopLeft || action == TapAction::switchDesktopRight)
        return abilities.switchesWorkspaces;
    return action == TapAction::focusWindow ? abilities.readsTitles : Outcome::success();
}

} // namespace

AccessReport accessReport() {
    const auto trackpads = Platform::current().inputDevices.trackpads();
    const auto abilities = Platform::current().session.abilities();
    AccessReport report;
    report.session = abilities.sessionName;
    for (const Trackpad& trackpad : trackpads)
        report.trackpads.push_back(
            {u"trackpad"_s, trackpad.name, trackpad.complaint.isEmpty(), trackpad.node});
    for (const auto remedy :
         {TrackpadRemedy::installRule, TrackpadRemedy::applyRule, TrackpadRemedy::reconnect})
        addProblem(report, trackpads, remedy);
    for (const Outcome& ability :
         {abilities.controlsWindows, abilities.switchesWorkspaces, abilities.readsTitles}) {
        if (ability)
            continue;
        report.problems.push_back({.heading = u"This session keeps something from Brimlow"_s,
                                   .text = sentence(ability.reason) + u' ' + abilities.remedy});
        break; // the others follow from it, or have their rows below
    }

    const Outcome trusted = accessibility(trackpads, abilities);
    report.permissions = {
        item(u"lock.shield"_s, u"Accessibility"_s, trusted,
             u"Every trackpad can be read, and windows can be controlled."_s),
        item(u"rectangle.dashed.badge.record"_s, u"Screen Recording"_s, abilities.readsTitles,
             u"The titles of windows can be read. Pictures of the screen are never taken."_s),
        item(u"bolt.horizontal"_s, u"Automation (System Events)"_s,
             trusted ? abilities.switchesWorkspaces : trusted,
             u"Desktops can be switched. No keyboard shortcut needs to be set for it."_s)};
    for (const TapAction action : allTapActions)
        if (action != TapAction::none && action != TapAction::customCommand)
            report.actions.push_back(item(iconName(action), displayName(action),
                                          whetherWorks(action, abilities, trusted), {}));
    return report;
}

} // namespace brimlow
