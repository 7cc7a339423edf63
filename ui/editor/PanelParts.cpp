#include "ui/editor/PanelParts.h"

#include "ui/controls/Caption.h"
#include "ui/controls/SymbolLabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using controls::SymbolLabel;
using style::Role;
using style::Theme;

QHBoxLayout* symbolNote(const QString& symbol, style::Tone tone, const QString& text, Role role,
                        QLabel** label) {
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    line->addWidget(new SymbolLabel(symbol, 14, tone), 0, Qt::AlignTop);
    auto* words = new Caption(text, role);
    line->addWidget(words, 1);
    if (label)
        *label = words;
    return line;
}

QHBoxLayout* infoNote(const QString& text) {
    return symbolNote(u"info.circle"_s, &Theme::secondaryText, text);
}

QLayout* captionedField(const QString& caption, QWidget* field) {
    auto* rows = new QVBoxLayout;
    rows->setSpacing(4);
    auto* label = new QLabel(caption);
    style::setRole(label, Role::fieldCaption);
    label->setBuddy(field);
    rows->addWidget(label);
    rows->addWidget(field);
    return rows;
}

} // namespace brimlow
