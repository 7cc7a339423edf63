#include "ui/onboarding/CentredPage.h"

#include "ui/controls/Caption.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/style/ApplicationStyle.h"

#include <QVBoxLayout>

namespace brimlow {

using controls::Caption;
using style::Role;

namespace {

constexpr int symbolSize = 64;
constexpr int widest = 440;
constexpr int sentenceInset = 20;
// Of the room that is left over.
constexpr int partAbove = 1;
constexpr int partBelow = 2;

Caption* centred(const QString& text, Role role) {
    auto* caption = new Caption(text, role);
    caption->setAlignment(Qt::AlignHCenter);
    return caption;
}

} // namespace

CentredPage::CentredPage(const QString& symbol, style::Tone tone, const Texts& texts,
                         QWidget* parent)
    : QWidget(parent), rows_(new QVBoxLayout) {
    setAccessibleName(texts.title);
    rows_->setSpacing(0);
    rows_->addWidget(new controls::SymbolLabel(symbol, symbolSize, tone), 0, Qt::AlignHCenter);
    rows_->addSpacing(12);
    rows_->addWidget(centred(texts.title, Role::welcomeTitle));
    rows_->addSpacing(8);
    auto* sentence = centred(texts.sentence, texts.sentenceRole);
    sentence->setContentsMargins(sentenceInset, 0, sentenceInset, 0);
    rows_->addWidget(sentence);
    rows_->addSpacing(24);

    auto* column = new QWidget;
    column->setMaximumWidth(style::currentType().scaled(widest));
    column->setLayout(rows_);
    rows_->setContentsMargins({});
    auto* line = new QHBoxLayout;
    line->addWidget(column);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins({});
    page->addStretch(partAbove);
    page->addLayout(line);
    page->addStretch(partBelow);
}

void CentredPage::addRow(QWidget* row) {
    rows_->addWidget(row);
}

void CentredPage::addSpacing(int pixels) {
    rows_->addSpacing(pixels);
}

} // namespace brimlow
