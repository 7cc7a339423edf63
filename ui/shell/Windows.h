#pragma once

#include <QSize>

class QWidget;

namespace brimlow {

// How the shell treats its windows; both take top-level widgets. Main thread.

/// Sizes in pixels at usual text; where the desktop wants larger text, the width grows with it, and
/// the usual height as far as the screen allows.
void fitToText(QWidget& window, QSize smallest, QSize usual);

/// Shows it, with the focus, on the current workspace, whatever had the focus before: the user has
/// asked for it.
void bringToFront(QWidget& window);

} // namespace brimlow
