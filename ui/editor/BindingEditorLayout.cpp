// How the sheet is put together; what it does is in BindingEditorSheet.cpp.

#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/ComboBox.h"
#include "ui/controls/ScrollPage.h"
#include "ui/controls/Switch.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/editor/BindingEditorSheet.h"
#include "ui/editor/EditorTexts.h"
#include "ui/editor/PanelParts.h"
#include "ui/editor/RecordingSection.h"
#include "ui/editor/SliderPanel.h"
#include "ui/pickers/AppPickerView.h"
#include "ui/pickers/FocusWindowPicker.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Symbols.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using style::Role;
using style::Theme;

namespace {

constexpr QSize usualSize{520, 680};
constexpr controls::ValueSlider::Range radii{.first = 20, .last = 300, .step = 5};
constexpr controls::ValueSlider::Range pressures{.first = 0, .last = 1500, .step = 50};

QFrame* divider() {
    auto* line = new QFrame;
    style::setRole(line, Role::divider);
    line->setFixedHeight(1);
    return line;
}

controls::ComboBox* actionMenu() {
    auto* menu = new controls::ComboBox(u"Action"_s);
    for (const TapAction action : BindingDraft::offeredActions())
        menu->addItem(style::symbolIcon(iconName(action)), displayName(action));
    return menu;
}

} // namespace

void BindingEditorSheet::build() {
    const bool creates = draft_.mode == BindingDraft::Mode::create;
    setWindowTitle(creates ? u"New Tap Binding"_s : u"Edit Tap Binding"_s);
    resize(style::currentType().scaled(usualSize.width()),
           style::currentType().scaled(usualSize.height()));
    setModal(true);
    page_ = new controls::ScrollPage(windowTitle());
    page_->setColumn(makeColumn());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(page_, 1);
    rows->addWidget(divider());
    rows->addLayout(makeFooter());
    name_->setFocus();
}

QWidget* BindingEditorSheet::makeColumn() {
    name_ = new QLineEdit;
    name_->setPlaceholderText(u"e.g. Right Palm Rest"_s);
    name_->setMaxLength(1 << 20); // or else a long name would be cut without a word
    name_->setAccessibleName(u"Name"_s);
    action_ = actionMenu();
    recording_ = new RecordingSection;
    radius_ = new SliderPanel(
        {.heading = u"Match Radius"_s,
         .smallEnd = u"Smaller (precise spot)"_s,
         .largeEnd = u"Bigger (loose area)"_s},
        radii,
        u"This is the actual radius around your recorded position that counts as a match. "
        u"The pale circle on the map above shows it live."_s);
    pressure_ = new SliderPanel(
        {.heading = u"Required Tap Pressure"_s,
         .smallEnd = u"Any tap (incl. light brushes)"_s,
         .largeEnd = u"Firm press only"_s},
        pressures,
        u"Filters out accidental light brushes. The trackpad measures finger contact "
        u"size; firmer presses give bigger sizes. Watch the 'TRACKPAD TAP ... size=...' "
        u"log lines to see how strong your normal taps register."_s);

    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    rows->setSpacing(12);
    rows->addLayout(makeHeader());
    rows->addLayout(captionedField(u"Name"_s, name_));
    rows->addLayout(captionedField(u"Action"_s, action_));
    target_ = makeTarget();
    rows->addWidget(target_);
    rows->addWidget(divider());
    for (QWidget* panel : {static_cast<QWidget*>(recording_), static_cast<QWidget*>(radius_),
                           makeClickPanel(), static_cast<QWidget*>(pressure_)})
        rows->addWidget(panel);
    rows->addStretch();
    return column;
}

QLayout* BindingEditorSheet::makeHeader() {
    auto* title = new QLabel(windowTitle());
    style::setRole(title, Role::sheetTitle);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(title);
    words->addWidget(
        new Caption(u"Tap your laptop to mark a position, then bind it to an action."_s));
    auto* line = new QHBoxLayout;
    line->setSpacing(12);
    line->addWidget(new controls::SymbolLabel(u"hand.tap.fill"_s, 32, &Theme::blue));
    line->addLayout(words, 1);
    return line;
}

QWidget* BindingEditorSheet::makeTarget() {
    app_ = new AppPickerView;
    window_ = new FocusWindowPicker(draft_.mode == BindingDraft::Mode::edit);
    appCaption_ = new QLabel;
    style::setRole(appCaption_, Role::fieldCaption);
    auto* target = new QWidget;
    auto* rows = new QVBoxLayout(target);
    rows->setContentsMargins({});
    rows->setSpacing(4);
    rows->addWidget(appCaption_);
    rows->addWidget(app_);
    rows->addSpacing(8);
    rows->addWidget(window_);
    return target;
}

QWidget* BindingEditorSheet::makeClickPanel() {
    const QString heading = u"Require trackpad click"_s;
    click_ = new controls::Switch(heading);
    clickText_ = new Caption;
    clickWarning_ = new QWidget;
    auto* warning = symbolNote(u"info.circle.fill"_s, &Theme::orangeSymbol,
                               clickWarning(TapAction::toggleBrimlow, false), Role::caption);
    warning->setContentsMargins({});
    clickWarning_->setLayout(warning);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(6);
    rows->addLayout(controls::headingLine(heading, click_));
    rows->addWidget(clickText_);
    rows->addWidget(clickWarning_);
    auto* panel = new controls::Card;
    panel->add(rows);
    return panel;
}

QLayout* BindingEditorSheet::makeFooter() {
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(controls::ScrollPage::padding, 12, controls::ScrollPage::padding,
                                12);
    buttons->setSpacing(8);
    if (draft_.mode == BindingDraft::Mode::edit) {
        auto* remove = controls::destructiveButton(u"Delete"_s, u"trash"_s);
        remove->setAutoDefault(false);
        connect(remove, &QPushButton::clicked, this, &BindingEditorSheet::removeBinding);
        buttons->addWidget(remove);
    }
    buttons->addStretch();
    auto* cancel = controls::borderedButton(u"Cancel"_s);
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &BindingEditorSheet::reject);
    buttons->addWidget(cancel);
    save_ = controls::prominentButton(u"Save"_s);
    save_->setDefault(true);
    connect(save_, &QPushButton::clicked, this, &BindingEditorSheet::save);
    buttons->addWidget(save_);
    return buttons;
}

} // namespace brimlow
