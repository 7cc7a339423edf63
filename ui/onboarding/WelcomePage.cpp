#include "ui/onboarding/WelcomePage.h"

#include "ui/controls/Caption.h"
#include "ui/controls/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using style::Role;
using style::Theme;

namespace {

constexpr int symbolSize = 16;
constexpr int symbolGap = 8;
constexpr int spacing = 12;

QLayout* featureLine(const QString& text) {
    auto* line = new QHBoxLayout;
    line->setSpacing(symbolGap);
    line->addWidget(
        new controls::SymbolLabel(u"checkmark.circle.fill"_s, symbolSize, &Theme::greenSymbol), 0,
        Qt::AlignTop);
    line->addWidget(new controls::Caption(text, Role::body), 1);
    return line;
}

/// A block as wide as its longest line, in the middle.
QWidget* makeFeatures() {
    auto* features = new QVBoxLayout;
    features->setSpacing(spacing);
    for (const QString& text : {u"Tap a recorded spot to fire its bound action"_s,
                                u"Bring a target window to focus across Spaces"_s,
                                u"Works in the background — no foreground app needed"_s,
                                u"Privacy-first — runs entirely on your Mac"_s})
        features->addLayout(featureLine(text));
    auto* block = new QWidget;
    auto* line = new QHBoxLayout(block);
    line->setContentsMargins({});
    line->addStretch();
    line->addLayout(features);
    line->addStretch();
    return block;
}

} // namespace

WelcomePage::WelcomePage(QWidget* parent)
    : CentredPage(u"hand.tap.fill"_s, &Theme::blue,
                  {.title = u"Welcome to Brimlow"_s,
                   .sentence = u"Bind trackpad tap positions to actions — switch desktops, open "
                               u"apps, focus a specific window even on another Space."_s,
                   .sentenceRole = Role::secondaryBody},
                  parent) {
    addRow(makeFeatures());
}

} // namespace brimlow
