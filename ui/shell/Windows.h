#pragma once

#include <QSize>

class QWidget;

namespace brimlow {

// How the shell treats its windows; all take top-level widgets. Main thread.

/// Sizes in pixels at usual text; where the desktop wants larger text, the width grows with it, and
/// the usual height as far as the screen allows.
void fitToText(QWidget& window, QSize smallest, QSize usual);

/// In the middle of its screen, for a window that is not shown yet. Where programs do not place
/// their windows, as under Wayland, it has no effect.
void centre(QWidget& window);

/// Shows it, with the focus, on the current workspace, whatever had the focus before: the user has
/// asked for it.
void bringToFront(QWidget& window);

} // namespace brimlow
