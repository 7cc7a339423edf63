#pragma once

#include "platform/ConsentRecords.h"
#include "platform/SystemSettings.h"
#include "platform/linux/access/RuleInstaller.h"

#include <memory>
#include <optional>

namespace brimlow {

class AccessWindow;

/// The system's settings as far as this program needs them: one window, made when it is first
/// wanted, and the desktop's own settings for keyboard shortcuts where there are any.
///
/// A prompt shows the window without giving it the focus. Once the user has closed it, nobody is
/// prompted about the same things again for a day, unless they are in one of our windows and so
/// have asked for it.
class AccessSettings final : public platform::SystemSettings {
public:
    explicit AccessSettings(platform::RuleInstaller& installer,
                            platform::ConsentRecords records = platform::ConsentRecords());
    ~AccessSettings() override;

    void open(platform::SettingsPane pane) override;
    void prompt(platform::SettingsPane pane) override;

    /// Null as long as it was not wanted.
    AccessWindow* window() { return window_.get(); }

private:
    AccessWindow& makeWindow();
    bool openKeyboardSettings();
    void allow();
    void remember();

    platform::RuleInstaller& installer_;
    platform::ConsentRecords records_;
    std::unique_ptr<AccessWindow> window_;
    std::optional<platform::SettingsPane> prompted_; // what it was last shown for unasked
};

} // namespace brimlow
