#include "tools/pictures/Scenes.h"
#include "ui/controls/Badge.h"
#include "ui/controls/Banner.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/Card.h"
#include "ui/controls/ComboBox.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/Switch.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/style/Symbols.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>

#include <functional>

namespace brimlow::pictures {

using namespace Qt::StringLiterals;
using namespace controls;
using style::Role;

namespace {

QLabel* label(const QString& text, Role role = Role::caption) {
    auto* made = new QLabel(text);
    style::setRole(made, role);
    return made;
}

QPushButton* small(QPushButton* button) {
    style::setSmall(button);
    return button;
}

QLayout* buttonStates() {
    struct Row {
        QString name;
        std::function<QPushButton*()> make;
    };
    const std::vector<Row> rows{
        {u"Prominent"_s, [] { return prominentButton(u"Save"_s); }},
        {u"Prominent, small"_s,
         [] { return small(prominentButton(u"Add"_s, u"plus.circle.fill"_s)); }},
        {u"Bordered"_s, [] { return borderedButton(u"Cancel"_s); }},
        {u"Bordered, small"_s, [] { return small(borderedButton(u"Edit"_s)); }},
        {u"Destructive"_s, [] { return destructiveButton(u"Delete"_s, u"trash"_s); }},
        {u"Icon only"_s, [] { return iconButton(u"Rename"_s, u"pencil"_s); }},
    };
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(14);
    const QStringList states{u"Normal"_s, u"Hover"_s, u"Pressed"_s, u"Focus"_s, u"Disabled"_s};
    for (int column = 0; column < states.size(); ++column)
        grid->addWidget(label(states[column], Role::secondCaption), 0, column + 1);
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        const Row& kind = rows[static_cast<std::size_t>(row)];
        grid->addWidget(label(kind.name), row + 1, 0);
        std::vector<QPushButton*> buttons;
        for (int column = 0; column < states.size(); ++column) {
            buttons.push_back(kind.make());
            grid->addWidget(buttons.back(), row + 1, column + 1, Qt::AlignLeft | Qt::AlignVCenter);
        }
        setPose(buttons[1], Pose::hovered);
        buttons[2]->setDown(true);
        setPose(buttons[3], Pose::focused);
        buttons[4]->setEnabled(false);
    }
    return grid;
}

QWidget* sidebarStates() {
    auto* bar = new QFrame;
    style::setRole(bar, Role::sidebar);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(10, 10, 10, 10);
    std::vector<QPushButton*> rows;
    for (const auto& text : {u"Normal"_s, u"Hover"_s, u"Selected"_s, u"Selected, focus"_s}) {
        rows.push_back(sidebarButton(text, u"gear"_s));
        rows.back()->setAutoExclusive(false);
        line->addWidget(rows.back());
    }
    setPose(rows[1], Pose::hovered);
    rows[2]->setChecked(true);
    rows[3]->setChecked(true);
    setPose(rows[3], Pose::focused);
    return bar;
}

QLayout* switches() {
    auto* line = new QHBoxLayout;
    line->setSpacing(10);
    const auto add = [line](const QString& text, bool checked, bool enabled) {
        auto* made = new Switch(text);
        made->setChecked(checked);
        made->setEnabled(enabled);
        line->addWidget(made);
        line->addWidget(label(text));
        return made;
    };
    add(u"off"_s, false, true);
    add(u"on"_s, true, true);
    setPose(add(u"focus"_s, true, true), Pose::focused);
    add(u"disabled"_s, false, false);
    add(u"disabled, on"_s, true, false);
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setAccessibleName(u"Slider"_s);
    slider->setRange(5, 30);
    slider->setValue(14);
    line->addWidget(slider, 1);
    return line;
}

QLayout* fields() {
    auto* line = new QHBoxLayout;
    line->setSpacing(10);
    const auto add = [line](const QString& text, const QString& placeholder) {
        auto* made = new QLineEdit(text);
        made->setPlaceholderText(placeholder);
        made->setAccessibleName(placeholder);
        line->addWidget(made);
        return made;
    };
    add({}, u"Profile name"_s);
    setPose(add(u"Work"_s, u"Profile name"_s), Pose::focused);
    add({}, u"Search apps…"_s)
        ->addAction(style::symbolIcon(u"magnifyingglass"_s, &style::Theme::secondaryText),
                    QLineEdit::LeadingPosition);
    auto* combo = new ComboBox(u"Profile"_s);
    combo->addItems({u"Work"_s, u"Home"_s});
    line->addWidget(combo);
    return line;
}

QLayout* badges() {
    auto* flow = new FlowLayout;
    using enum Badge::Kind;
    const std::vector<std::pair<QString, Badge::Kind>> kinds{{u"Granted"_s, green},
                                                             {u"Not Granted"_s, orange},
                                                             {u"Failed"_s, red},
                                                             {u"Check in Settings"_s, grey}};
    for (const auto& [text, kind] : kinds)
        flow->addWidget(new Badge(text, kind));
    return flow;
}

QLayout* listAndBanner() {
    auto* list = new QListWidget;
    list->setAccessibleName(u"Applications"_s);
    for (const auto& name : {u"Calculator"_s, u"Firefox"_s, u"Terminal"_s})
        list->addItem(
            new QListWidgetItem(style::symbolIcon(u"app.fill"_s, &style::Theme::greySymbol), name));
    list->setCurrentRow(1);
    list->setFixedHeight(112);
    auto* banner = new Banner(u"Grant doesn't seem to be working"_s,
                              u"A banner tells at length what is the matter, and what can be "
                              u"done about it, so its text wraps."_s);
    banner->addButton(prominentButton(u"Reset Permissions"_s, u"arrow.counterclockwise"_s));
    banner->addButton(borderedButton(u"Reveal Brimlow"_s, u"magnifyingglass"_s));
    auto* line = new QHBoxLayout;
    line->setSpacing(14);
    line->addWidget(list, 0, Qt::AlignTop);
    line->addWidget(banner, 1);
    return line;
}

QWidget* card() {
    auto* section = new Section(u"Tap Bindings"_s,
                                small(prominentButton(u"Add Binding"_s, u"plus.circle.fill"_s)));
    const auto row = [](const QString& symbol, const QString& name, QLabel* detail) {
        auto* line = new QHBoxLayout;
        line->setSpacing(12);
        line->addWidget(new SymbolLabel(symbol, 20, &style::Theme::blue));
        auto* texts = new QVBoxLayout;
        texts->setSpacing(3);
        texts->addWidget(label(name, Role::row));
        texts->addWidget(label(u"Switch Desktop Left"_s));
        texts->addWidget(detail);
        line->addLayout(texts, 1);
        line->addWidget(small(borderedButton(u"Edit"_s)));
        return line;
    };
    section->card().add(row(u"arrow.left.circle"_s, u"Top left corner"_s,
                            label(u"1 sample  •  match radius ≈ 0.10000"_s, Role::rowDetail)));
    section->card().addDivider(46);
    section->card().add(row(u"nosign"_s, u"Left <2> & more"_s,
                            label(u"Not recorded — won't trigger"_s, Role::unrecordedDetail)));
    section->card().addDivider();
    section->card().add(new Caption(u"Bindings exist but none are recorded yet — taps won't "
                                    u"trigger any action until you record at least one "
                                    u"position. Names with & and < stay as they are."_s));
    return section;
}

} // namespace

std::unique_ptr<QWidget> makeComponents() {
    auto page = std::make_unique<QFrame>();
    style::setRole(page.get(), Role::page);
    page->setFixedWidth(760);
    auto* rows = new QVBoxLayout(page.get());
    rows->setContentsMargins(20, 20, 20, 20);
    rows->setSpacing(14);
    rows->addLayout(buttonStates());
    rows->addWidget(sidebarStates());
    rows->addLayout(switches());
    rows->addLayout(fields());
    rows->addLayout(badges());
    rows->addLayout(listAndBanner());
    rows->addWidget(card());
    return page;
}

} // namespace brimlow::pictures
