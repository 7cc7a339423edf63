#include "ui/tap/BindingsGroup.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/editor/PanelParts.h"
#include "ui/maps/TrackpadBindingsMap.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/tap/BindingRow.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using controls::Card;
using style::Role;
using style::Theme;

namespace {

constexpr int noticePadding = 8;
constexpr int emptyPadding = 24;
constexpr int widestCaption = 300;

QPushButton* addButton() {
    auto* button = controls::prominentButton(u"Add Binding"_s, u"plus.circle.fill"_s);
    button->setToolTip(u"Add a new binding to this profile"_s);
    style::setSmall(button);
    return button;
}

QWidget* makeNotice() {
    auto* notice = new QWidget;
    auto* line = symbolNote(u"info.circle"_s, &Theme::orangeSymbol,
                            u"Bindings exist but none are recorded yet — taps won't trigger any "
                            u"action until you record at least one position."_s,
                            Role::caption);
    const int side = Card::sidePadding;
    line->setContentsMargins(side, 6 + noticePadding, side, Card::padding + noticePadding);
    notice->setLayout(line);
    return notice;
}

} // namespace

BindingsGroup::BindingsGroup(QWidget* parent) : BindingsGroup(addButton(), parent) {}

BindingsGroup::BindingsGroup(QPushButton* add, QWidget* parent)
    : Section(u"Tap Bindings"_s, add, parent), map_(new TrackpadBindingsMap), filled_(new QWidget),
      list_(new QVBoxLayout), notice_(makeNotice()), empty_(makeEmptyState()) {
    connect(add, &QPushButton::clicked, this, &BindingsGroup::addRequested);
    auto* mapFrame = new QVBoxLayout;
    // The map has room around its surface itself.
    mapFrame->setContentsMargins(Card::sidePadding, Card::padding, Card::sidePadding, 0);
    mapFrame->addWidget(map_);
    list_->setSpacing(0);
    auto* rows = new QVBoxLayout(filled_);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addLayout(mapFrame);
    rows->addLayout(list_);
    rows->addWidget(notice_);
    card().addFlush(filled_);
    card().addFlush(empty_);
}

QWidget* BindingsGroup::makeEmptyState() {
    auto* title = new Caption(u"No tap bindings yet"_s, Role::row);
    auto* caption = new Caption(u"Click + Add to bind a tap location to an action, or use the "
                                u"default layout below."_s);
    caption->setAlignment(Qt::AlignHCenter);
    caption->setMaximumWidth(style::currentType().scaled(widestCaption));
    auto* captionLine = new QHBoxLayout;
    captionLine->addStretch();
    captionLine->addWidget(caption);
    captionLine->addStretch();
    auto* useDefault = controls::prominentButton(
        u"Use Default Layout (10 positions, 5 left + 5 right)"_s, u"rectangle.split.2x1"_s);
    connect(useDefault, &QPushButton::clicked, this, &BindingsGroup::defaultLayoutRequested);

    auto* empty = new QWidget;
    auto* rows = new QVBoxLayout(empty);
    rows->setContentsMargins(Card::sidePadding, emptyPadding, Card::sidePadding, emptyPadding);
    rows->setSpacing(0);
    rows->addWidget(new controls::SymbolLabel(u"hand.tap"_s, 28, &Theme::secondaryText), 0,
                    Qt::AlignHCenter);
    rows->addSpacing(8);
    rows->addWidget(title, 0, Qt::AlignHCenter);
    rows->addSpacing(4);
    rows->addLayout(captionLine); // aligned, it would not be asked for its height
    rows->addSpacing(12);
    rows->addWidget(useDefault, 0, Qt::AlignHCenter);
    return empty;
}

void BindingsGroup::show(const std::vector<TapPositionMapping>& bindings, bool hasAnyRecorded) {
    map_->setBindings(bindings);
    showRows(bindings);
    filled_->setVisible(!bindings.empty());
    notice_->setVisible(!hasAnyRecorded);
    empty_->setVisible(bindings.empty());
}

void BindingsGroup::showRows(const std::vector<TapPositionMapping>& bindings) {
    while (rows_.size() > bindings.size()) {
        rows_.back()->deleteLater(); // its button may be what brought us here
        list_->removeWidget(rows_.back());
        rows_.pop_back();
    }
    for (std::size_t position = 0; position < bindings.size(); ++position) {
        if (position == rows_.size()) {
            rows_.push_back(new BindingRow);
            connect(rows_.back(), &BindingRow::editRequested, this, &BindingsGroup::editRequested);
            list_->addWidget(rows_.back());
        }
        rows_[position]->show(bindings[position], position);
    }
}

} // namespace brimlow
