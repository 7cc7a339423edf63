#pragma once

#include "ui/style/Appearance.h"

#include <array>

namespace brimlow::style {

/// Every colour of the user interface by what it is for. All are opaque: tints are mixed with the
/// surface that they lie on.
struct Theme {
    ColourScheme scheme;

    // Surfaces and lines
    QColor window;
    QColor inset; // a readout inside of a card
    QColor card;
    QColor sidebar;
    QColor field;
    QColor cardBorder;
    QColor divider;
    QColor line; // fields and switches
    QColor sliderGroove;
    QColor scrollThumb;

    // Text
    QColor text;
    QColor secondaryText;
    QColor tertiaryText;
    QColor disabledText;
    QColor greenText;
    QColor orangeText;
    QColor redText;
    QColor accentText; // on accent fills

    // Buttons
    QColor button;
    QColor buttonBorder;
    QColor buttonHover;
    QColor buttonPressed;
    QColor destructiveHover = {};
    QColor destructivePressed = {};
    QColor destructiveBorder = {}; // hovered and pressed
    QColor accent;
    QColor accentHover;
    QColor accentPressed;

    // Symbols
    QColor blue; // also the focus ring
    QColor greenSymbol;
    QColor orangeSymbol;
    QColor redSymbol;
    QColor purpleSymbol;
    QColor greySymbol;

    // Tints
    QColor greenBadge = {};
    QColor orangeBadge = {};
    QColor redBadge = {};
    QColor greyBadge = {};
    QColor notice = {};
    QColor noticeBorder = {};
    QColor sidebarHover = {};
    QColor sidebarSelection = {};
    QColor windowHover = {};
    QColor cardHover = {};
    QColor chip = {};
    QColor listSelection = {};

    // Maps
    QColor mapGrey;
    QColor mapRed;
    QColor sampleFill; // below a white number
    std::array<QColor, 8> bindings;
};

/// Names a colour of whichever theme is current, as in `&Theme::redText`.
using Tone = QColor Theme::*;

/// A desktop's accent is changed as little as it takes to be read: dark enough for white on it,
/// light enough to be seen on a dark window.
Theme makeTheme(const Appearance& appearance);

} // namespace brimlow::style
