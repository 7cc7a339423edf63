#include "ui/pickers/WindowChoice.h"

namespace brimlow {

using namespace Qt::StringLiterals;

std::vector<PickableWindow> visibleWindows(const std::vector<PickableWindow>& windows,
                                           std::optional<std::uint32_t> bound, bool hideBound) {
    auto visible = windows;
    if (hideBound && bound)
        std::erase_if(visible, [&](const PickableWindow& window) { return window.id == *bound; });
    return visible;
}

QString windowCount(std::size_t count) {
    return QString::number(count) + (count == 1 ? u" window"_s : u" windows"_s);
}

std::optional<SettingsLink> settingsLink(const QString& refreshError) {
    const QString pane = u"x-apple.systempreferences:com.apple.preference.security?Privacy_"_s;
    if (refreshError.contains("Screen Recording"_L1) || refreshError.contains("titled"_L1))
        return SettingsLink{u"Open Privacy & Security → Screen Recording"_s,
                            pane + u"ScreenCapture"_s};
    if (refreshError.contains("Accessibility"_L1))
        return SettingsLink{u"Open Privacy & Security → Accessibility"_s,
                            pane + u"Accessibility"_s};
    return std::nullopt;
}

} // namespace brimlow
