#pragma once

namespace brimlow::platform {

class Applications;
class Clock;
class Icons;
class InputDevices;
class LogSink;
class MainQueue;
class NSBundle;
class NSUserDefaults;
class Session;

/// Everything the process asks of the system it runs on. The services of this folder
/// (AXIsProcessTrusted, NSWorkspace, ...) are process-wide by nature and look here; each program
/// and each test makes one, which is current until it is destroyed. All members outlive it.
struct Platform {
    Platform(Clock& theClock, MainQueue& theQueue, LogSink& theLog, NSUserDefaults& theDefaults,
             NSBundle& theBundle, InputDevices& theDevices, Applications& theApplications,
             Icons& theIcons, Session& theSession);
    ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    /// The one that was made last. Asking without one is a programming error and aborts.
    static Platform& current();

    Clock& clock;
    MainQueue& mainQueue;
    LogSink& log;
    NSUserDefaults& standardUserDefaults;
    NSBundle& mainBundle;
    InputDevices& inputDevices;
    Applications& applications;
    Icons& icons;
    Session& session;

private:
    Platform* previous_;
};

} // namespace brimlow::platform
