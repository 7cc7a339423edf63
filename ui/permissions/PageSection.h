#pragma once

#include "ui/style/Theme.h"

#include <QWidget>

class QHBoxLayout;
class QPushButton;

namespace brimlow {

namespace controls {
class Badge;
class FlowLayout;
class SymbolLabel;
} // namespace controls

/// A large symbol, and in one column beside it a heading, a text and buttons, which wrap. The
/// column begins at the same place in every section and in a Banner.
class PageSection : public QWidget {
    Q_OBJECT

public:
    PageSection(const QString& symbol, style::Tone tone, const QString& heading,
                const QString& text, QWidget* parent = nullptr);

    /// Before the heading, smaller.
    void addHeadingSymbol(const QString& symbol, style::Tone tone);
    /// At the right end of the heading's line.
    void addBadge(controls::Badge* badge);
    /// Right of those before.
    void addButton(QPushButton* button);

    controls::SymbolLabel& symbol() { return *symbol_; }

private:
    controls::SymbolLabel* symbol_;
    QHBoxLayout* headingLine_;
    controls::FlowLayout* buttons_;
};

} // namespace brimlow
