#include "ui/DesktopPlatform.h"

#include "platform/ChooseSession.h"

#include <QApplication>
#include <QDBusConnection>
#include <QThreadPool>

namespace brimlow {

using namespace Qt::StringLiterals;

DesktopPlatform::DesktopPlatform()
    : defaults_(platform::NSUserDefaults::standardPath(), log_, &mainQueue_),
      bundle_(platform::NSBundle::forApplicationAt(QApplication::applicationFilePath())),
      logindSession_([this](bool active) { inputDevices_.setSessionActive(active); }),
      icons_(clock_),
      session_(platform::chooseSession(applications_,
                                       [](const QString& reason) {
                                           platform::printErrorLine(
                                               u"Brimlow: %1, so Brimlow ends"_s.arg(reason));
                                           QApplication::exit(1);
                                       })),
      appearance_(QDBusConnection::sessionBus()), style_(appearance_.appearance()),
      installer_(bundle_.pathForAuxiliaryExecutable(u"brimlow-access-helper"_s)),
      settings_(installer_), platform_(services()) {
    style_.follow(appearance_);
    icons_.setAppearance({.themeName = {}, .pixelRatio = qApp->devicePixelRatio()});
    // Now, so that the first tap does not wait for it.
    QThreadPool::globalInstance()->start([this] { applications_.catalogue(); });
}

platform::PlatformServices DesktopPlatform::services() {
    return {.clock = clock_,
            .mainQueue = mainQueue_,
            .log = log_,
            .standardUserDefaults = defaults_,
            .mainBundle = bundle_,
            .inputDevices = inputDevices_,
            .applications = applications_,
            .icons = icons_,
            .session = *session_,
            .systemSettings = settings_,
            .fileViewer = fileViewer_};
}

} // namespace brimlow
