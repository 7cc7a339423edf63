#include "ui/style/Theme.h"

#include "ui/style/Contrast.h"

namespace brimlow::style {

namespace {

/// Chooses between the light scheme's value and the dark one's.
struct Pick {
    ColourScheme scheme;

    QColor operator()(QRgb light, QRgb dark) const { return QColor(value(light, dark)); }
    template<typename T>
    T value(T light, T dark) const {
        return scheme == ColourScheme::light ? light : dark;
    }
};

Theme baseTheme(const Pick& pick) {
    return {
        .scheme = pick.scheme,
        .window = pick(0xF3F4F6, 0x1D1F23),
        .inset = pick(0xF3F4F6, 0x1D1F23),
        .card = pick(0xFFFFFF, 0x26292E),
        .sidebar = pick(0xE9EBEE, 0x17191C),
        .field = pick(0xFFFFFF, 0x1D1F23),
        .cardBorder = pick(0xDCDFE4, 0x383C43),
        .divider = pick(0xE4E6EA, 0x33373D),
        .line = pick(0x868E9B, 0x6E7582),
        .sliderGroove = pick(0xCED0D5, 0x565A61),
        .scrollThumb = pick(0xB4BAC4, 0x555C67),
        .text = pick(0x1B1F26, 0xE9EBEE),
        .secondaryText = pick(0x555D6A, 0xAEB5C0),
        .tertiaryText = pick(0x636B78, 0x959DA9),
        .disabledText = pick(0x9BA2AD, 0x6A717C),
        .greenText = pick(0x14692C, 0x63D083),
        .orangeText = pick(0x8F4500, 0xFFB05C),
        .redText = pick(0xB8231C, 0xFF8F86),
        .accentText = Qt::white,
        .button = pick(0xFFFFFF, 0x31353B),
        .buttonBorder = pick(0xC3C8D0, 0x4B515B),
        .buttonHover = pick(0xF3F4F6, 0x3A3F46),
        .buttonPressed = pick(0xE6E9ED, 0x2B2F34),
        .accent = pick(0x1F62C8, 0x3670D8),
        .accentHover = pick(0x1B58B5, 0x2E63C4),
        .accentPressed = pick(0x174C9C, 0x2756AC),
        .blue = pick(0x1F62C8, 0x82B2FF),
        .greenSymbol = pick(0x1F8A40, 0x4CC46E),
        .orangeSymbol = pick(0xC76700, 0xF79A3B),
        .redSymbol = pick(0xD12F28, 0xFF6B61),
        .purpleSymbol = pick(0x7403C3, 0xAA61F8),
        .greySymbol = pick(0x757D8A, 0x8E96A3),
        .mapGrey = pick(0x6F7683, 0xA3AAB5),
        .mapRed = pick(0xD12F28, 0xFF6B61),
        .sampleFill = pick(0xBF1F19, 0xD12F28),
        .bindings = {pick(0x006BE1, 0x70A2E8), pick(0x157F3F, 0x77CE7F), pick(0xE08121, 0xF37D0E),
                     pick(0x7403C3, 0xAA61F8), pick(0xED4F97, 0xD98CAD), pick(0x0297A1, 0x45DEED),
                     pick(0xDCB400, 0xF6DC4C), pick(0xA10010, 0xE94E4E)},
    };
}

void useAccent(Theme& theme, const QColor& desktopAccent) {
    const bool isDark = theme.scheme == ColourScheme::dark;
    const QColor seen = isDark ? lightenedTo(2, theme.card, desktopAccent) : desktopAccent;
    theme.accent = darkenedTo(4.5, theme.accentText, seen);
    theme.accentHover = over(Qt::black, 0.1, theme.accent);
    theme.accentPressed = over(Qt::black, 0.22, theme.accent);
    theme.blue = isDark ? lightenedTo(6, theme.card, theme.accent) : theme.accent;
}

void raiseContrast(Theme& theme) {
    theme.secondaryText = theme.tertiaryText = theme.text;
    theme.cardBorder = theme.divider = theme.buttonBorder = theme.line;
    theme.greySymbol = theme.text;
    theme.disabledText = theme.line;
}

void mixTints(Theme& theme, const Pick& pick) {
    const QColor green = pick(0x1FA34A, 0x4CC46E);
    const QColor orange = pick(0xF08A00, 0xF79A3B);
    const QColor red = pick(0xE5352B, 0xFF6B61);
    const QColor grey = pick(0x6B7380, 0xAEB5C0);
    theme.greenBadge = over(green, 0.15, theme.card);
    theme.orangeBadge = over(orange, 0.15, theme.card);
    theme.redBadge = over(red, 0.15, theme.card);
    theme.greyBadge = over(grey, 0.15, theme.card);
    theme.notice = over(orange, 0.12, theme.window);
    theme.noticeBorder = over(orange, 0.38, theme.window);
    theme.destructiveHover = over(red, 0.1, theme.button);
    theme.destructivePressed = over(red, pick.value(0.18, 0.15), theme.button);
    theme.destructiveBorder = over(red, 0.45, theme.button);

    const QColor wash = pick(0x000000, 0xFFFFFF);
    const double washed = pick.value(0.06, 0.07);
    theme.sidebarHover = over(wash, washed, theme.sidebar);
    theme.windowHover = over(wash, washed, theme.window);
    theme.cardHover = over(wash, washed, theme.card);
    theme.sidebarSelection = over(theme.accent, 0.25, theme.sidebar);
    theme.chip = over(theme.accent, pick.value(0.1, 0.2), theme.window);
    theme.listSelection = over(theme.accent, pick.value(0.14, 0.24), theme.card);
}

} // namespace

Theme makeTheme(const Appearance& appearance) {
    const Pick pick{appearance.scheme};
    Theme theme = baseTheme(pick);
    if (appearance.accent)
        useAccent(theme, *appearance.accent);
    if (appearance.highContrast)
        raiseContrast(theme);
    mixTints(theme, pick);
    return theme;
}

} // namespace brimlow::style
