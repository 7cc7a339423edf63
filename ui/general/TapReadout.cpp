#include "ui/general/TapReadout.h"

#include "platform/Format.h"
#include "ui/controls/Caption.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using controls::SymbolLabel;
using style::Role;
using style::Theme;

namespace {

constexpr int padding = 8;
constexpr int symbolSize = 16;

QHBoxLayout* lineOf(QWidget* line) {
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    layout->setSpacing(6);
    return layout;
}

QLabel* words(Role role, const QString& text = {}) {
    auto* label = new QLabel(text);
    style::setRole(label, role);
    return label;
}

} // namespace

TapReadout::TapReadout(QWidget* parent)
    : QFrame(parent), instruction_(makeInstruction()), result_(makeVerdict()) {
    style::setRole(this, Role::inset);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(padding, padding, padding, padding);
    rows->setSpacing(6);
    rows->addWidget(instruction_);
    rows->addWidget(result_);
    rows->addWidget(
        new Caption(u"Tip: tap normally a few times, note the numbers, then set the slider a "
                    u"little above your typical reading. Palms are usually 15+, fingertips 5–10."_s,
                    Role::secondCaption));
}

QWidget* TapReadout::makeInstruction() {
    auto* instruction = new QWidget;
    auto* line = lineOf(instruction);
    line->addWidget(new SymbolLabel(u"hand.tap"_s, symbolSize, &Theme::secondaryText), 0,
                    Qt::AlignTop);
    line->addWidget(new Caption(u"Tap the trackpad anywhere — your tap's size will show here so "
                                u"you can compare it to the slider."_s),
                    1);
    return instruction;
}

QWidget* TapReadout::makeVerdict() {
    auto* result = new QWidget;
    auto* line = lineOf(result);
    symbol_ = new SymbolLabel({}, symbolSize);
    size_ = words(Role::captionHeading);
    verdict_ = words(Role::noticeText);
    verdict_->setContentsMargins(4, 0, 0, 0);
    auto* text = new controls::FlowLayout(0);
    for (QLabel* part : {words(Role::noticeText, u"Your last tap: "_s), size_, verdict_})
        text->addWidget(part);
    line->addWidget(symbol_, 0, Qt::AlignTop);
    line->addLayout(text, 1);
    return result;
}

void TapReadout::show(const std::optional<TapInfo>& tap, double maxAxis) {
    instruction_->setVisible(!tap);
    result_->setVisible(tap.has_value());
    if (!tap)
        return;
    const bool rejected = maxAxis < tap->maxMajorAxis;
    if (rejected)
        symbol_->set(u"xmark.circle.fill"_s, &Theme::orangeSymbol);
    else
        symbol_->set(u"checkmark.circle.fill"_s, &Theme::greenSymbol);
    size_->setText(platform::fixed(tap->maxMajorAxis, 1));
    verdict_->setText(rejected ? u"→ rejected (above slider)"_s : u"→ allowed (below slider)"_s);
}

} // namespace brimlow
