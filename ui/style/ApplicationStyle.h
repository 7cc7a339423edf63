#pragma once

#include "ui/style/Appearance.h"
#include "ui/style/Theme.h"
#include "ui/style/TypeScale.h"

#include <QObject>

namespace brimlow::style {

class DesktopAppearance;

/// Dresses the application: palette, style sheet and font. Lives beside Qt's own palette and style
/// sheet as a child of the application object, where currentTheme() finds it.
class ApplicationStyle : public QObject {
    Q_OBJECT

public:
    /// One per application, made after it and before its first window.
    explicit ApplicationStyle(const Appearance& appearance = {});

    /// Everything that is on screen changes at once; widgets hear of it as QEvent::StyleChange.
    void apply(const Appearance& appearance);
    /// From now on what the desktop wishes.
    void follow(DesktopAppearance& desktop);

    const Theme& theme() const { return theme_; }
    const TypeScale& type() const { return type_; }

private:
    void dress();

    Theme theme_;
    TypeScale type_;
};

/// Gives back what Qt's style sheets remember of widgets that are gone, which they do for as long
/// as the sheet is the same. For when a large window has been destroyed.
void forgetGoneWidgets();

/// What ApplicationStyle made of the desktop's wishes; without one the light theme.
const Theme& currentTheme();
const TypeScale& currentType();

} // namespace brimlow::style
