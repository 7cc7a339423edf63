#include "ui/access/AccessRows.h"

#include "ui/controls/Badge.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/Card.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/style/Role.h"

#include <QApplication>
#include <QClipboard>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Badge;
using controls::Caption;
using controls::Section;
using controls::SymbolLabel;
using style::Role;
using style::Theme;

namespace {

constexpr int symbolSize = 18;
constexpr int symbolGap = 10;

QLabel* plainLabel(const QString& text, Role role) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    style::setRole(label, role);
    return label;
}

QHBoxLayout* line(const QString& symbol) {
    auto* row = new QHBoxLayout;
    row->setSpacing(symbolGap);
    row->addWidget(new SymbolLabel(symbol, symbolSize, &Theme::secondaryText), 0, Qt::AlignTop);
    return row;
}

QWidget* itemRow(const AccessItem& item, const AccessVerdicts& verdicts) {
    auto* row = new QWidget;
    auto* columns = line(item.symbol);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(plainLabel(item.name, Role::row));
    if (!item.detail.isEmpty())
        words->addWidget(new Caption(item.detail));
    columns->addLayout(words, 1);
    const QString verdict = item.works ? verdicts.yes : verdicts.no;
    columns->addWidget(new Badge(verdict, item.works ? Badge::Kind::green : Badge::Kind::orange), 0,
                       Qt::AlignTop);
    columns->setContentsMargins({});
    row->setLayout(columns);
    row->setAccessibleName(item.name + u": "_s + verdict);
    row->setAccessibleDescription(item.detail);
    return row;
}

} // namespace

QWidget* accessSection(const QString& title, const std::vector<AccessItem>& items,
                       const AccessVerdicts& verdicts) {
    auto* section = new Section(title);
    bool first = true;
    for (const AccessItem& item : items) {
        if (!std::exchange(first, false))
            section->card().addDivider(controls::Card::sidePadding + symbolSize + symbolGap);
        section->card().add(itemRow(item, verdicts));
    }
    return section;
}

QWidget* accessNote(const QString& title, const QString& symbol, const QString& text) {
    auto* section = new Section(title);
    auto* row = line(symbol);
    row->addWidget(plainLabel(text, Role::row), 1);
    section->card().add(row);
    return section;
}

QWidget* commandsToCopy(const QString& commands) {
    auto* box = new QWidget;
    auto* rows = new QVBoxLayout(box);
    rows->setContentsMargins({});
    rows->setSpacing(6);
    rows->addWidget(new Caption(u"Or run these commands in a terminal:"_s));
    auto* text = plainLabel(commands, Role::coordinates);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setAccessibleName(u"Commands that allow it"_s);
    auto* inset = new QFrame;
    style::setRole(inset, Role::inset);
    (new QVBoxLayout(inset))->addWidget(text);
    rows->addWidget(inset);
    auto* copy = controls::borderedButton(u"Copy Commands"_s, u"doc.on.doc"_s);
    QObject::connect(copy, &QPushButton::clicked, copy,
                     [commands] { QApplication::clipboard()->setText(commands); });
    rows->addWidget(copy, 0, Qt::AlignLeft);
    return box;
}

} // namespace brimlow
