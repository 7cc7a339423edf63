#include "tools/pictures/Scenes.h"
#include "ui/controls/SymbolLabel.h"
#include "ui/style/Role.h"
#include "ui/style/Symbols.h"

#include <QGridLayout>
#include <QLabel>

namespace brimlow::pictures {

namespace {

constexpr int columns = 6;

QLayout* drawings(const QString& name) {
    auto* line = new QHBoxLayout;
    line->setSpacing(12);
    line->addStretch();
    for (const int size : {44, 22, 16})
        line->addWidget(new controls::SymbolLabel(name, size), 0, Qt::AlignBottom);
    line->addStretch();
    return line;
}

} // namespace

std::unique_ptr<QWidget> makeSymbols() {
    auto page = std::make_unique<QFrame>();
    style::setRole(page.get(), style::Role::page);
    auto* grid = new QGridLayout(page.get());
    grid->setContentsMargins(16, 20, 16, 20);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(22);
    int index = 0;
    for (const QString& name : style::symbolNames()) {
        auto* cell = new QVBoxLayout;
        cell->setSpacing(6);
        cell->addLayout(drawings(name));
        auto* label = new QLabel(name);
        style::setRole(label, style::Role::secondCaption);
        cell->addWidget(label, 0, Qt::AlignHCenter);
        grid->addLayout(cell, index / columns, index % columns);
        ++index;
    }
    return page;
}

} // namespace brimlow::pictures
