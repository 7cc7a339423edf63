#include "platform/SystemSettings.h"

#include <array>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

std::optional<SettingsPane> settingsPane(const QString& address) {
    struct Row {
        QStringView address; // after the scheme
        SettingsPane pane;
    };
    static constexpr std::array rows = {
        Row{u"com.apple.preference.security?Privacy_Accessibility", SettingsPane::accessibility},
        Row{u"com.apple.preference.security?Privacy_ScreenCapture", SettingsPane::screenRecording},
        Row{u"com.apple.preference.security?Privacy_Automation", SettingsPane::automation},
        Row{u"com.apple.preference.keyboard?Shortcuts", SettingsPane::keyboardShortcuts},
    };
    for (const Row& row : rows)
        if (address == u"x-apple.systempreferences:"_s + row.address)
            return row.pane;
    return std::nullopt;
}

} // namespace brimlow::platform
