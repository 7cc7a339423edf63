#include "ui/style/Theme.h"

#include "tests/support/Printing.h"
#include "ui/style/Contrast.h"

#include <gtest/gtest.h>

namespace brimlow::style {

namespace {

struct Text {
    const char* name;
    Tone front;
    std::vector<Tone> backs;
};

const std::vector<Text> texts{
    {"text",
     &Theme::text,
     {&Theme::window, &Theme::inset, &Theme::card, &Theme::sidebar, &Theme::sidebarHover,
      &Theme::sidebarSelection, &Theme::field, &Theme::cardHover, &Theme::listSelection,
      &Theme::chip, &Theme::notice, &Theme::button, &Theme::buttonHover, &Theme::buttonPressed}},
    {"secondary",
     &Theme::secondaryText,
     {&Theme::window, &Theme::inset, &Theme::card, &Theme::greyBadge, &Theme::cardHover,
      &Theme::listSelection, &Theme::chip}},
    {"tertiary", &Theme::tertiaryText, {&Theme::window, &Theme::inset, &Theme::card}},
    {"green", &Theme::greenText, {&Theme::greenBadge, &Theme::card, &Theme::window}},
    {"orange", &Theme::orangeText, {&Theme::orangeBadge, &Theme::card, &Theme::window}},
    {"red",
     &Theme::redText,
     {&Theme::redBadge, &Theme::card, &Theme::window, &Theme::button, &Theme::destructiveHover,
      &Theme::destructivePressed}},
    {"on the accent",
     &Theme::accentText,
     {&Theme::accent, &Theme::accentHover, &Theme::accentPressed, &Theme::sampleFill}},
};
const std::vector<Tone> symbols{&Theme::greenSymbol,  &Theme::orangeSymbol, &Theme::redSymbol,
                                &Theme::purpleSymbol, &Theme::greySymbol,   &Theme::blue};

std::vector<Appearance> appearances() {
    std::vector<Appearance> all;
    for (const auto scheme : {ColourScheme::light, ColourScheme::dark})
        for (const bool high : {false, true}) {
            all.push_back({.scheme = scheme, .highContrast = high});
            for (const QRgb accent : {0xFFF000U, 0x0D0D12U, 0xE01B24U, 0xFFFFFFU, 0x3584E4U})
                all.push_back({.scheme = scheme, .accent = QColor(accent), .highContrast = high});
        }
    return all;
}

TEST(Theme, EverythingCanBeRead) {
    for (const auto& appearance : appearances()) {
        const Theme theme = makeTheme(appearance);
        SCOPED_TRACE(appearance.scheme == ColourScheme::light ? "light" : "dark");
        SCOPED_TRACE(theme.accent.name().toStdString());
        for (const auto& [name, front, backs] : texts)
            for (const Tone back : backs)
                EXPECT_GE(contrast(theme.*front, theme.*back), 4.5)
                    << name << " on " << (theme.*back).name().toStdString();
        for (const Tone symbol : symbols)
            for (const QColor& back : {theme.window, theme.card})
                EXPECT_GE(contrast(theme.*symbol, back), 3) << (theme.*symbol).name().toStdString();
        EXPECT_GE(contrast(theme.orangeSymbol, theme.notice), 3);
        EXPECT_GE(contrast(theme.line, theme.field), 3);
        if (appearance.highContrast) {
            EXPECT_GE(contrast(theme.tertiaryText, theme.window), 7);
            EXPECT_GE(contrast(theme.cardBorder, theme.window), 3);
        }
    }
}

TEST(Theme, ADesktopAccentIsKeptWhereItCanBe) {
    EXPECT_EQ(makeTheme({.accent = QColor(0x1A5FB4)}).accent, QColor(0x1A5FB4));
    const QColor yellow(0xF6D32D); // nobody could read white text on it
    EXPECT_NEAR(makeTheme({.accent = yellow}).accent.hueF(), yellow.hueF(), 0.02);
    const Theme dark = makeTheme({.scheme = ColourScheme::dark, .accent = Qt::black});
    EXPECT_GE(contrast(dark.accent, dark.card), 2) << "a black button on a dark card";
}

TEST(Contrast, IsThatOfTheDefinition) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_NEAR(contrast(QColor(0x777777), Qt::white), 4.48, 0.01);
}

} // namespace
} // namespace brimlow::style
