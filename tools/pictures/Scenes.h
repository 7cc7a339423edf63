#pragma once

#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

namespace brimlow::pictures {

/// Something to take a picture of, as high and wide as it asks to be.
struct Scene {
    QString name;
    std::unique_ptr<QWidget> (*make)();
};

/// Makes a part of a scene look as if the mouse were on it, or had the focus by the keyboard.
enum class Pose { hovered, focused };
void setPose(QWidget* part, Pose pose);

/// Has all parts take their poses; the scene has to be on screen.
void pose(QWidget* scene);

/// All scenes; a new one is a line here.
std::vector<Scene> scenes();

std::unique_ptr<QWidget> makeSymbols();
std::unique_ptr<QWidget> makeComponents();
std::unique_ptr<QWidget> makeAccess();
std::unique_ptr<QWidget> makeAccessDenied();
std::unique_ptr<QWidget> makeAccessLimited();
std::unique_ptr<QWidget> makeBindingsMaps();
std::unique_ptr<QWidget> makeNarrowMaps();
std::unique_ptr<QWidget> makeSampleMaps();
std::unique_ptr<QWidget> makeAppsScanning();
std::unique_ptr<QWidget> makeAppsList();
std::unique_ptr<QWidget> makeAppsSelected();
std::unique_ptr<QWidget> makeAppsSearch();
std::unique_ptr<QWidget> makeAppsNothing();
std::unique_ptr<QWidget> makeAppChip();
std::unique_ptr<QWidget> makeAppChipUnknown();
std::unique_ptr<QWidget> makeWindows();
std::unique_ptr<QWidget> makeWindowsBound();
std::unique_ptr<QWidget> makeWindowsListedBound();
std::unique_ptr<QWidget> makeWindowsAlreadyBound();
std::unique_ptr<QWidget> makeWindowsNotRunning();
std::unique_ptr<QWidget> makeWindowsUnreadable();
std::unique_ptr<QWidget> makeWindowsUntitled();
std::unique_ptr<QWidget> makeWindowsNoApp();
std::unique_ptr<QWidget> makeEditorEmpty();
std::unique_ptr<QWidget> makeEditorWhole();
std::unique_ptr<QWidget> makeEditorLegacy();
std::unique_ptr<QWidget> makeEditorCountdown();
std::unique_ptr<QWidget> makeEditorRecording();
std::unique_ptr<QWidget> makePermissions();
std::unique_ptr<QWidget> makePermissionsSmall();
std::unique_ptr<QWidget> makePermissionsReset();
std::unique_ptr<QWidget> makePermissionsResetFailed();
std::unique_ptr<QWidget> makeOnboardingWelcome();
std::unique_ptr<QWidget> makeOnboardingPermissions();
std::unique_ptr<QWidget> makeOnboardingGranted();
std::unique_ptr<QWidget> makeOnboardingSmall();
std::unique_ptr<QWidget> makeOnboardingSummary();
std::unique_ptr<QWidget> makeGeneral();
std::unique_ptr<QWidget> makeGeneralPalm();
std::unique_ptr<QWidget> makeGeneralSmall();
std::unique_ptr<QWidget> makeGeneralOff();
std::unique_ptr<QWidget> makeTap();
std::unique_ptr<QWidget> makeTapWhole();
std::unique_ptr<QWidget> makeTapSmall();
std::unique_ptr<QWidget> makeTapLarge();
std::unique_ptr<QWidget> makeTapEmpty();
std::unique_ptr<QWidget> makeTapUnrecorded();
std::unique_ptr<QWidget> makeNewProfile();
std::unique_ptr<QWidget> makeRenameProfile();
std::unique_ptr<QWidget> makeDeleteProfile();
std::unique_ptr<QWidget> makeClearAll();
std::unique_ptr<QWidget> makeImportFailed();
std::unique_ptr<QWidget> makeUpdateNewer();
std::unique_ptr<QWidget> makeUpdateNewerLong();
std::unique_ptr<QWidget> makeUpdateNewerBare();
std::unique_ptr<QWidget> makeUpdateChecking();
std::unique_ptr<QWidget> makeUpToDate();
std::unique_ptr<QWidget> makeUpdateFailed();
std::unique_ptr<QWidget> makeTrackpad();

} // namespace brimlow::pictures
