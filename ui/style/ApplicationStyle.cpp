#include "ui/style/ApplicationStyle.h"

#include "ui/style/DesktopAppearance.h"
#include "ui/style/StyleSheet.h"

#include <QApplication>
#include <QPalette>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

/// For what the style sheet does not reach, such as the insides of Qt's own dialogs.
QPalette paletteOf(const Theme& theme) {
    QPalette palette(theme.button, theme.window);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.card);
    palette.setColor(QPalette::AlternateBase, theme.window);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.tertiaryText);
    palette.setColor(QPalette::ToolTipBase, theme.card);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.accentText);
    palette.setColor(QPalette::Link, theme.blue);
    palette.setColor(QPalette::LinkVisited, theme.blue);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.disabledText);
    return palette;
}

const ApplicationStyle* current() {
    return QCoreApplication::instance()->findChild<ApplicationStyle*>({},
                                                                      Qt::FindDirectChildrenOnly);
}

} // namespace

ApplicationStyle::ApplicationStyle(const Appearance& appearance)
    : QObject(qApp), theme_(makeTheme(appearance)), type_(appearance.textScale) {
    QApplication::setStyle(u"Fusion"_s);
    dress();
}

void ApplicationStyle::apply(const Appearance& appearance) {
    theme_ = makeTheme(appearance);
    type_ = TypeScale(appearance.textScale);
    dress();
}

void ApplicationStyle::follow(DesktopAppearance& desktop) {
    connect(&desktop, &DesktopAppearance::changed, this, &ApplicationStyle::apply);
    apply(desktop.appearance());
}

void ApplicationStyle::dress() {
    QApplication::setPalette(paletteOf(theme_));
    QApplication::setFont(type_.font(TextStyle::body));
    qApp->setStyleSheet(styleSheet(theme_, type_));
}

void forgetGoneWidgets() {
    qApp->setStyleSheet(qApp->styleSheet());
}

const Theme& currentTheme() {
    static const Theme fallback = makeTheme({});
    const ApplicationStyle* style = current();
    return style ? style->theme() : fallback;
}

const TypeScale& currentType() {
    static const TypeScale fallback;
    const ApplicationStyle* style = current();
    return style ? style->type() : fallback;
}

} // namespace brimlow::style
