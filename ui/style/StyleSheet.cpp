#include "ui/style/StyleSheet.h"

#include <QHash>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

// @name is a colour of the theme, @nameFont a text style, @12 a length in pixels that grows with
// the desktop's text. Lengths without @ hold no text and stay.
constexpr auto sheet = R"(
QWidget { color: @text; }
QMainWindow, QDialog, QFrame[role="page"], QScrollArea, QScrollArea > QWidget > QWidget[role="page"] {
    background: @window; border: 0;
}
QToolTip { background: @card; color: @text; border: 1px solid @cardBorder; padding: 3px; }

QLabel[role="welcomeTitle"] { font: @welcomeTitleFont; }
QLabel[role="pageHeading"] { font: @pageHeadingFont; }
QLabel[role="sheetTitle"] { font: @sheetTitleFont; }
QLabel[role="heading"] { font: @headingFont; }
QLabel[role="body"] { font: @bodyFont; }
QLabel[role="secondaryBody"] { font: @bodyFont; color: @secondaryText; }
QLabel[role="row"] { font: @rowFont; }
QLabel[role="fieldCaption"] { font: @fieldCaptionFont; color: @secondaryText; }
QLabel[role="captionHeading"] { font: @captionHeadingFont; }
QLabel[role="caption"] { font: @captionFont; color: @secondaryText; }
QLabel[role="secondCaption"] { font: @secondCaptionFont; color: @secondaryText; }
QLabel[role="noticeText"] { font: @captionFont; }
QLabel[role="rowDetail"] { font: @rowDetailFont; color: @tertiaryText; }
QLabel[role="unrecordedDetail"] { font: @unrecordedDetailFont; color: @orangeText; }
QLabel[role="recordedState"] { font: @rowFont; color: @greenText; }
QLabel[role="coordinates"] { font: @coordinatesFont; color: @secondaryText; }
QLabel:disabled { color: @disabledText; }

QLabel[role$="Badge"] {
    font: @badgeFont; border-radius: @9; padding: 0 @7; min-height: @18; max-height: @18;
}
QLabel[role="greenBadge"] { background: @greenBadge; color: @greenText; }
QLabel[role="orangeBadge"] { background: @orangeBadge; color: @orangeText; }
QLabel[role="redBadge"] { background: @redBadge; color: @redText; }
QLabel[role="greyBadge"] { background: @greyBadge; color: @secondaryText; }

QFrame[role="sidebar"] { background: @sidebar; border: 0; border-right: 1px solid @cardBorder; }
QFrame[role="card"] { background: @card; border: 1px solid @cardBorder; border-radius: 10px; }
QFrame[role="inset"] { background: @inset; border: 1px solid @divider; border-radius: 6px; }
QFrame[role="notice"] { background: @notice; border: 1px solid @noticeBorder; border-radius: 10px; }
QFrame[role="chip"] { background: @chip; border: 0; border-radius: 8px; }
QFrame[role="divider"] { background: @divider; border: 0; }

QPushButton {
    font: @rowFont; background: @button; border: 1px solid @buttonBorder; border-radius: 6px;
    padding: 0 @12; min-height: @26; icon-size: @16;
}
QPushButton:hover { background: @buttonHover; }
QPushButton:pressed { background: @buttonPressed; }
QPushButton[small="true"] { font: @smallButtonFont; padding: 0 @10; min-height: @22; icon-size: @14; }
QPushButton[role="prominent"] {
    background: @accent; border-color: @accent; color: @accentText;
}
QPushButton[role="prominent"]:hover { background: @accentHover; border-color: @accentHover; }
QPushButton[role="prominent"]:pressed { background: @accentPressed; border-color: @accentPressed; }
QPushButton[role="destructive"] { color: @redText; }
QPushButton[role^="destructive"]:hover {
    background: @destructiveHover; border-color: @destructiveBorder;
}
QPushButton[role^="destructive"]:pressed {
    background: @destructivePressed; border-color: @destructiveBorder;
}
QPushButton[role="icon"], QPushButton[role="destructiveIcon"] { padding: 0; min-width: @28; max-width: @28; }
QPushButton:disabled, QPushButton[role="prominent"]:disabled,
QPushButton[role^="destructive"]:disabled {
    background: transparent; border-color: @cardBorder; color: @disabledText;
}
QPushButton[role="flatIcon"] {
    background: transparent; border: 0; padding: 0;
    min-width: @24; max-width: @24; min-height: @24; max-height: @24;
}
QPushButton[role="flatIcon"]:hover { background: @windowHover; }
QPushButton[role="sidebarRow"] {
    font: @rowFont; background: transparent; border: 0; text-align: left;
    padding: 0 @12; min-height: @30;
}
QPushButton[role="sidebarRow"]:hover { background: @sidebarHover; }
QPushButton[role="sidebarRow"]:checked { font: @headingFont; background: @sidebarSelection; }

QLineEdit {
    background: @field; border: 1px solid @line; border-radius: 6px; padding: 0 @7;
    min-height: @28; selection-background-color: @accent; selection-color: @accentText;
}
QLineEdit:focus { border: 2px solid @blue; padding: 0 @6; min-height: @26; }
QLineEdit:disabled { background: transparent; border-color: @cardBorder; color: @disabledText; }

QComboBox {
    font: @rowFont; background: @button; border: 1px solid @buttonBorder; border-radius: 6px;
    padding: 0 @10; min-height: @26; icon-size: @16;
}
QComboBox:hover { background: @buttonHover; }
QComboBox:on { background: @buttonPressed; }
QComboBox:disabled { background: transparent; border-color: @cardBorder; color: @disabledText; }
QComboBox::drop-down { border: 0; width: @24; }
QComboBox::down-arrow { image: none; }
QComboBox QAbstractItemView { border: 1px solid @cardBorder; border-radius: 0; }

QAbstractItemView {
    background: @card; border: 1px solid @cardBorder; border-radius: 8px; padding: 3px;
    outline: 0; selection-background-color: @listSelection; selection-color: @text;
}
QAbstractItemView[role="rows"] { padding: 2px; }
QAbstractItemView::item { border-radius: 5px; padding: @4 @6; color: @text; }
QAbstractItemView::item:hover { background: @cardHover; }
QAbstractItemView::item:selected { background: @listSelection; }

QMenu { background: @card; border: 1px solid @cardBorder; padding: 4px; }
QMenu::item { padding: @5 @20; border-radius: 5px; }
QMenu::item:selected { background: @listSelection; }
QMenu::item:disabled { color: @disabledText; }
QMenu::separator { height: 1px; background: @divider; margin: 4px 6px; }

QSlider:horizontal { min-height: 20px; max-height: 20px; }
QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: @sliderGroove; }
QSlider::sub-page:horizontal { height: 4px; border-radius: 2px; background: @accent; }
QSlider::handle:horizontal {
    width: 14px; height: 14px; margin: -6px 0; border: 1px solid @line; border-radius: 8px;
    background: @accentText;
}
QSlider::sub-page:horizontal:disabled { background: @sliderGroove; }
QSlider::handle:horizontal:disabled { background: @window; border-color: @cardBorder; }

QScrollBar:vertical { background: transparent; width: 10px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 10px; margin: 0; }
QScrollBar::handle { background: @scrollThumb; border-radius: 3px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 30px; }
QScrollBar::handle:horizontal { min-width: 30px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)"_L1;

const QHash<QString, Tone>& colours() {
    static const QHash<QString, Tone> table{
        {u"window"_s, &Theme::window},
        {u"inset"_s, &Theme::inset},
        {u"card"_s, &Theme::card},
        {u"sidebar"_s, &Theme::sidebar},
        {u"field"_s, &Theme::field},
        {u"cardBorder"_s, &Theme::cardBorder},
        {u"divider"_s, &Theme::divider},
        {u"line"_s, &Theme::line},
        {u"sliderGroove"_s, &Theme::sliderGroove},
        {u"scrollThumb"_s, &Theme::scrollThumb},
        {u"text"_s, &Theme::text},
        {u"secondaryText"_s, &Theme::secondaryText},
        {u"tertiaryText"_s, &Theme::tertiaryText},
        {u"disabledText"_s, &Theme::disabledText},
        {u"greenText"_s, &Theme::greenText},
        {u"orangeText"_s, &Theme::orangeText},
        {u"redText"_s, &Theme::redText},
        {u"accentText"_s, &Theme::accentText},
        {u"button"_s, &Theme::button},
        {u"buttonBorder"_s, &Theme::buttonBorder},
        {u"buttonHover"_s, &Theme::buttonHover},
        {u"buttonPressed"_s, &Theme::buttonPressed},
        {u"destructiveHover"_s, &Theme::destructiveHover},
        {u"destructivePressed"_s, &Theme::destructivePressed},
        {u"destructiveBorder"_s, &Theme::destructiveBorder},
        {u"accent"_s, &Theme::accent},
        {u"accentHover"_s, &Theme::accentHover},
        {u"accentPressed"_s, &Theme::accentPressed},
        {u"blue"_s, &Theme::blue},
        {u"greenBadge"_s, &Theme::greenBadge},
        {u"orangeBadge"_s, &Theme::orangeBadge},
        {u"redBadge"_s, &Theme::redBadge},
        {u"greyBadge"_s, &Theme::greyBadge},
        {u"notice"_s, &Theme::notice},
        {u"noticeBorder"_s, &Theme::noticeBorder},
        {u"sidebarHover"_s, &Theme::sidebarHover},
        {u"sidebarSelection"_s, &Theme::sidebarSelection},
        {u"windowHover"_s, &Theme::windowHover},
        {u"cardHover"_s, &Theme::cardHover},
        {u"chip"_s, &Theme::chip},
        {u"listSelection"_s, &Theme::listSelection},
    };
    return table;
}

const QHash<QString, TextStyle>& fonts() {
    static const QHash<QString, TextStyle> table{
        {u"welcomeTitleFont"_s, TextStyle::welcomeTitle},
        {u"pageHeadingFont"_s, TextStyle::pageHeading},
        {u"sheetTitleFont"_s, TextStyle::sheetTitle},
        {u"headingFont"_s, TextStyle::heading},
        {u"bodyFont"_s, TextStyle::body},
        {u"rowFont"_s, TextStyle::row},
        {u"smallButtonFont"_s, TextStyle::smallButton},
        {u"fieldCaptionFont"_s, TextStyle::fieldCaption},
        {u"captionHeadingFont"_s, TextStyle::captionHeading},
        {u"captionFont"_s, TextStyle::caption},
        {u"secondCaptionFont"_s, TextStyle::secondCaption},
        {u"badgeFont"_s, TextStyle::badge},
        {u"rowDetailFont"_s, TextStyle::rowDetail},
        {u"unrecordedDetailFont"_s, TextStyle::unrecordedDetail},
        {u"coordinatesFont"_s, TextStyle::coordinates},
    };
    return table;
}

QString valueOf(const QString& token, const Theme& theme, const TypeScale& type) {
    if (token.front().isDigit())
        return QString::number(type.scaled(token.toInt())) + u"px"_s;
    if (const auto font = fonts().constFind(token); font != fonts().cend())
        return type.css(*font);
    const auto colour = colours().constFind(token);
    Q_ASSERT_X(colour != colours().cend(), "styleSheet", qPrintable(token));
    return (theme.**colour).name();
}

} // namespace

QString styleSheet(const Theme& theme, const TypeScale& type) {
    const QString pattern = sheet;
    QString text;
    for (qsizetype at = 0; at < pattern.size();) {
        if (pattern[at] != u'@') {
            text += pattern[at++];
            continue;
        }
        const qsizetype start = ++at;
        while (at < pattern.size() && pattern[at].isLetterOrNumber())
            ++at;
        text += valueOf(pattern.mid(start, at - start), theme, type);
    }
    return text;
}

} // namespace brimlow::style
