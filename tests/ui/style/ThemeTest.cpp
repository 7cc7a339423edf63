#include "ui/style/Theme.h"

#include "tests/support/Printing.h"
#include "ui/style/Contrast.h"
#include "ui/style/StyleSheet.h"

#include <gtest/gtest.h>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

constexpr double forText = 4.5;
constexpr double forSymbols = 3;

struct Pair {
    const char* name;
    Tone front;
    std::vector<Tone> backs;
    double least = forText;
};

const std::vector<Tone> surfaces{&Theme::window, &Theme::inset, &Theme::card};
const std::vector<Pair> pairs{
    {"text",
     &Theme::text,
     {&Theme::window, &Theme::inset, &Theme::card, &Theme::sidebar, &Theme::sidebarHover,
      &Theme::sidebarSelection, &Theme::field, &Theme::cardHover, &Theme::listSelection,
      &Theme::chip, &Theme::notice, &Theme::button, &Theme::buttonHover, &Theme::buttonPressed}},
    {"secondary",
     &Theme::secondaryText,
     {&Theme::window, &Theme::inset, &Theme::card, &Theme::greyBadge, &Theme::cardHover,
      &Theme::listSelection, &Theme::chip}},
    {"tertiary", &Theme::tertiaryText, surfaces},
    {"green", &Theme::greenText, {&Theme::greenBadge, &Theme::card, &Theme::window}},
    {"orange", &Theme::orangeText, {&Theme::orangeBadge, &Theme::card, &Theme::window}},
    {"red",
     &Theme::redText,
     {&Theme::redBadge, &Theme::card, &Theme::window, &Theme::button, &Theme::destructiveHover,
      &Theme::destructivePressed}},
    {"on the accent",
     &Theme::accentText,
     {&Theme::accent, &Theme::accentHover, &Theme::accentPressed, &Theme::sampleFill}},
    {"status", &Theme::greenSymbol, surfaces, forSymbols},
    {"warning", &Theme::orangeSymbol, {&Theme::card, &Theme::window, &Theme::notice}, forSymbols},
    {"error", &Theme::redSymbol, surfaces, forSymbols},
    {"permission", &Theme::purpleSymbol, {&Theme::card}, forSymbols},
    {"unknown", &Theme::greySymbol, surfaces, forSymbols},
    {"ring", &Theme::blue, surfaces, forSymbols},
    {"field line", &Theme::line, {&Theme::field, &Theme::window}, forSymbols},
};

std::string describe(const Appearance& appearance) {
    return (appearance.scheme == ColourScheme::light ? "light " : "dark ")
           + (appearance.accent ? appearance.accent->name().toStdString() : "own accent")
           + (appearance.highContrast ? ", high contrast" : "");
}

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
        for (const auto& [name, front, backs, least] : pairs)
            for (const Tone back : backs)
                EXPECT_GE(contrast(theme.*front, theme.*back), least)
                    << name << " on " << (theme.*back).name().toStdString() << ", "
                    << describe(appearance);
    }
}

TEST(Theme, ADesktopAccentIsKeptWhereItCanBe) {
    EXPECT_EQ(makeTheme({.accent = QColor(0x1A5FB4)}).accent, QColor(0x1A5FB4));
    const QColor yellow(0xF6D32D);
    const Theme theme = makeTheme({.accent = yellow});
    EXPECT_NE(theme.accent, yellow) << "white text is on it";
    EXPECT_NEAR(theme.accent.hueF(), yellow.hueF(), 0.02);
    EXPECT_GT(contrast(theme.accentHover, Qt::white), contrast(theme.accent, Qt::white));
    EXPECT_GT(contrast(theme.accentPressed, Qt::white), contrast(theme.accentHover, Qt::white));
    const Theme dark = makeTheme({.scheme = ColourScheme::dark, .accent = Qt::black});
    EXPECT_GE(contrast(dark.accent, dark.card), 2) << "a black button on a dark card";
}

TEST(Theme, HighContrastLeavesNoPaleText) {
    for (const auto scheme : {ColourScheme::light, ColourScheme::dark}) {
        const Theme theme = makeTheme({.scheme = scheme, .highContrast = true});
        EXPECT_GE(contrast(theme.tertiaryText, theme.window), 7);
        EXPECT_GE(contrast(theme.cardBorder, theme.window), forSymbols);
    }
}

TEST(Contrast, IsThatOfTheDefinition) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_NEAR(contrast(QColor(0x777777), Qt::white), 4.48, 0.01);
    EXPECT_EQ(over(Qt::black, 0.25, Qt::white), QColor(191, 191, 191));
    EXPECT_EQ(lightenedTo(22, Qt::black, Qt::blue), QColor(Qt::white)) << "out of reach";
}

TEST(StyleSheet, NamesNothingThatIsMissingAndGrowsWithTheText) {
    const QString plain = styleSheet(makeTheme({}), TypeScale(1));
    EXPECT_FALSE(plain.contains(u'@'));
    EXPECT_TRUE(plain.contains(u"font: 600 18px"_s));
    EXPECT_TRUE(styleSheet(makeTheme({}), TypeScale(2)).contains(u"font: 600 36px"_s));
}

} // namespace
} // namespace brimlow::style
