#include "ui/controls/Buttons.h"

#include "ui/style/ApplicationStyle.h"
#include "ui/style/Role.h"
#include "ui/style/Symbols.h"

#include <QPushButton>
#include <QStyleOptionButton>

namespace brimlow::controls {

using style::Role;
using style::symbolIcon;
using style::Theme;

namespace {

/// Qt leaves four pixels between symbol and text, which is too little. A symbol sits at the start
/// of whatever width it is given, so more width is more room.
class Button final : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        if (!text().isEmpty())
            option->iconSize.rwidth() += style::currentType().scaled(3);
    }
};

QPushButton* button(const QString& text, const QString& symbol, style::Tone tone) {
    auto* made = new Button(text);
    made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (!symbol.isEmpty())
        made->setIcon(symbolIcon(symbol, tone));
    return made;
}

QPushButton* symbolOnly(const QString& text, const QString& symbol, style::Tone tone, Role role) {
    QPushButton* made = button({}, symbol, tone);
    made->setToolTip(text);
    made->setAccessibleName(text);
    style::setRole(made, role);
    return made;
}

} // namespace

QPushButton* prominentButton(const QString& text, const QString& symbol) {
    QPushButton* made = button(text, symbol, &Theme::accentText);
    style::setRole(made, Role::prominent);
    return made;
}

QPushButton* borderedButton(const QString& text, const QString& symbol) {
    return button(text, symbol, &Theme::secondaryText);
}

QPushButton* destructiveButton(const QString& text, const QString& symbol) {
    QPushButton* made = button(text, symbol, &Theme::redText);
    style::setRole(made, Role::destructive);
    return made;
}

QPushButton* iconButton(const QString& text, const QString& symbol) {
    return symbolOnly(text, symbol, &Theme::text, Role::icon);
}

QPushButton* destructiveIconButton(const QString& text, const QString& symbol) {
    return symbolOnly(text, symbol, &Theme::redText, Role::destructiveIcon);
}

QPushButton* flatIconButton(const QString& text, const QString& symbol) {
    return symbolOnly(text, symbol, &Theme::secondaryText, Role::flatIcon);
}

QPushButton* sidebarButton(const QString& text, const QString& symbol) {
    QPushButton* made = button(text, symbol, &Theme::secondaryText);
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    made->setCheckable(true);
    made->setAutoExclusive(true);
    style::setRole(made, Role::sidebarRow);
    QObject::connect(made, &QPushButton::toggled, made, [made, symbol](bool checked) {
        made->setIcon(symbolIcon(symbol, checked ? &Theme::text : &Theme::secondaryText));
    });
    return made;
}

} // namespace brimlow::controls
