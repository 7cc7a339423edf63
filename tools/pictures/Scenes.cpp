#include "tools/pictures/Scenes.h"

#include "ui/controls/FocusRing.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QMouseEvent>

namespace brimlow::pictures {

using namespace Qt::StringLiterals;

namespace {
constexpr auto poseProperty = "pose";

void hover(QWidget& part) {
    part.setAttribute(Qt::WA_UnderMouse);
    // Push buttons also want to have seen the mouse move.
    QMouseEvent move(QEvent::MouseMove, part.rect().center(),
                     part.mapToGlobal(part.rect().center()), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&part, &move);
}

} // namespace

void setPose(QWidget* part, Pose pose) {
    part->setProperty(poseProperty, static_cast<int>(pose));
}

void pose(QWidget* scene) {
    for (QWidget* part : scene->findChildren<QWidget*>()) {
        const QVariant wanted = part->property(poseProperty);
        if (!wanted.isValid())
            continue;
        if (wanted.toInt() == static_cast<int>(Pose::hovered))
            hover(*part);
        else if (qobject_cast<QLineEdit*>(part))
            part->setFocus();
        else
            (new controls::FocusRing)->surround(part);
    }
}

std::vector<Scene> scenes() {
    return {
        {u"symbols"_s, makeSymbols},
        {u"components"_s, makeComponents},
        {u"access"_s, makeAccess},
        {u"access-denied"_s, makeAccessDenied},
        {u"access-limited"_s, makeAccessLimited},
        {u"maps-bindings"_s, makeBindingsMaps},
        {u"maps-narrow"_s, makeNarrowMaps},
        {u"maps-samples"_s, makeSampleMaps},
        {u"apps-scanning"_s, makeAppsScanning},
        {u"apps-list"_s, makeAppsList},
        {u"apps-selected"_s, makeAppsSelected},
        {u"apps-search"_s, makeAppsSearch},
        {u"apps-nothing"_s, makeAppsNothing},
        {u"app-chip"_s, makeAppChip},
        {u"app-chip-unknown"_s, makeAppChipUnknown},
        {u"windows"_s, makeWindows},
        {u"windows-bound"_s, makeWindowsBound},
        {u"windows-listed-bound"_s, makeWindowsListedBound},
        {u"windows-already-bound"_s, makeWindowsAlreadyBound},
        {u"windows-not-running"_s, makeWindowsNotRunning},
        {u"windows-unreadable"_s, makeWindowsUnreadable},
        {u"windows-untitled"_s, makeWindowsUntitled},
        {u"windows-no-app"_s, makeWindowsNoApp},
        {u"editor"_s, makeEditorEmpty},
        {u"editor-whole"_s, makeEditorWhole},
        {u"editor-legacy"_s, makeEditorLegacy},
        {u"editor-countdown"_s, makeEditorCountdown},
        {u"editor-recording"_s, makeEditorRecording},
        {u"permissions"_s, makePermissions},
        {u"permissions-small"_s, makePermissionsSmall},
        {u"permissions-reset"_s, makePermissionsReset},
        {u"permissions-reset-failed"_s, makePermissionsResetFailed},
        {u"onboarding-welcome"_s, makeOnboardingWelcome},
        {u"onboarding-permissions"_s, makeOnboardingPermissions},
        {u"onboarding-granted"_s, makeOnboardingGranted},
        {u"onboarding-small"_s, makeOnboardingSmall},
        {u"onboarding-summary"_s, makeOnboardingSummary},
        {u"general"_s, makeGeneral},
        {u"general-palm"_s, makeGeneralPalm},
        {u"general-small"_s, makeGeneralSmall},
        {u"general-off"_s, makeGeneralOff},
        {u"tap"_s, makeTap},
        {u"tap-whole"_s, makeTapWhole},
        {u"tap-small"_s, makeTapSmall},
        {u"tap-large"_s, makeTapLarge},
        {u"tap-empty"_s, makeTapEmpty},
        {u"tap-unrecorded"_s, makeTapUnrecorded},
        {u"new-profile"_s, makeNewProfile},
        {u"rename-profile"_s, makeRenameProfile},
        {u"delete-profile"_s, makeDeleteProfile},
        {u"clear-all"_s, makeClearAll},
        {u"import-failed"_s, makeImportFailed},
        {u"update-newer"_s, makeUpdateNewer},
        {u"update-newer-long"_s, makeUpdateNewerLong},
        {u"update-newer-bare"_s, makeUpdateNewerBare},
        {u"update-checking"_s, makeUpdateChecking},
        {u"up-to-date"_s, makeUpToDate},
        {u"update-failed"_s, makeUpdateFailed},
        {u"trackpad"_s, makeTrackpad},
    };
}

} // namespace brimlow::pictures
