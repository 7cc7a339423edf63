#pragma once

#include <QString>

#include <optional>

namespace brimlow::platform {

enum class SettingsPane { accessibility, screenRecording, automation, keyboardShortcuts };

/// The pane that an address of the scheme "x-apple.systempreferences" names; absent for any other
/// address. Any thread.
std::optional<SettingsPane> settingsPane(const QString& address);

/// Where the user sees what this program may do here, and grants it. Main thread.
class SystemSettings {
public:
    virtual ~SystemSettings() = default;

    /// Brings the pane to the front.
    virtual void open(SettingsPane pane) = 0;
    /// Tells the user that what the pane is about is missing, without taking the focus from their
    /// work. May be called as often as something is tried: it decides itself when to be silent.
    virtual void prompt(SettingsPane pane) = 0;
};

} // namespace brimlow::platform
