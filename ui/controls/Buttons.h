#pragma once

#include <QString>

class QPushButton;

namespace brimlow::controls {

// Each belongs to the layout that it is put into. `symbol` names a drawing, or is empty.

/// The one thing that a window or panel is for.
QPushButton* prominentButton(const QString& text, const QString& symbol = {});
QPushButton* borderedButton(const QString& text, const QString& symbol = {});
/// What it does cannot be undone.
QPushButton* destructiveButton(const QString& text, const QString& symbol = {});
/// Only a symbol: `text` is its tool tip and its accessible name.
QPushButton* iconButton(const QString& text, const QString& symbol);
QPushButton* destructiveIconButton(const QString& text, const QString& symbol);
/// The same without a frame, for use inside of lists and chips.
QPushButton* flatIconButton(const QString& text, const QString& symbol);
/// One of the pages in a window's sidebar; checked where its page is shown.
QPushButton* sidebarButton(const QString& text, const QString& symbol);

} // namespace brimlow::controls
