#pragma once

#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "platform/QtMainQueue.h"
#include "platform/Session.h"
#include "platform/Streams.h"
#include "platform/SystemClock.h"
#include "platform/linux/access/RuleInstaller.h"
#include "platform/linux/applications/GioApplications.h"
#include "platform/linux/evdev/EvdevInputDevices.h"
#include "platform/linux/fileviewer/DesktopFileViewer.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "platform/linux/logind/LogindSession.h"
#include "ui/access/AccessSettings.h"
#include "ui/controls/FocusRing.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/DesktopAppearance.h"

#include <memory>

namespace brimlow {

/// The real services of a program on a desktop, in the order in which they need each other. One
/// after the application object; it is the current platform for as long as it lives. Main thread.
class DesktopPlatform {
public:
    DesktopPlatform();

private:
    platform::PlatformServices services();

    platform::SystemClock clock_;
    platform::QtMainQueue mainQueue_;
    platform::StandardStreams log_;
    platform::NSUserDefaults defaults_;
    platform::NSBundle bundle_;
    platform::EvdevInputDevices inputDevices_;
    platform::LogindSession logindSession_;
    platform::GioApplications applications_;
    platform::ThemeIcons icons_;
    std::unique_ptr<platform::Session> session_;
    style::DesktopAppearance appearance_;
    style::ApplicationStyle style_;
    controls::KeyboardFocus keyboardFocus_;
    platform::RuleInstaller installer_;
    AccessSettings settings_;
    platform::DesktopFileViewer fileViewer_;
    platform::Platform platform_; // the last: it waits for what uses the others
};

} // namespace brimlow
