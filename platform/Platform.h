#pragma once

namespace brimlow::platform {

class Applications;
class Clock;
class FileViewer;
class Icons;
class InputDevices;
class LogSink;
class MainQueue;
class NSBundle;
class NSUserDefaults;
class Session;
class SystemSettings;

/// What a process asks of the system it runs on, one service each. All of them outlive the
/// platform that is made of them.
struct PlatformServices {
    Clock& clock;
    MainQueue& mainQueue;
    LogSink& log;
    NSUserDefaults& standardUserDefaults;
    NSBundle& mainBundle;
    InputDevices& inputDevices;
    Applications& applications;
    Icons& icons;
    Session& session;
    SystemSettings& systemSettings;
    FileViewer& fileViewer;
};

/// The services that are in force. The functions and classes of this folder (AXIsProcessTrusted,
/// NSWorkspace, ...) are process-wide by nature and look here; each program and each test makes
/// one, which is current until it is destroyed.
struct Platform : PlatformServices {
    explicit Platform(const PlatformServices& services);
    /// Waits for work on the global thread pool, which may look here.
    ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    /// The one that was made last. Asking without one is a programming error and aborts.
    static Platform& current();

private:
    Platform* previous_;
};

} // namespace brimlow::platform
