#pragma once

#include <QFontMetrics>
#include <QString>

namespace brimlow::controls {

/// The text as one line that fits into that many pixels; what does not fit is replaced by dots.
/// However long the text is, only its beginning is measured.
QString elidedText(const QString& text, const QFontMetrics& metrics, int width);

/// A tool tip that shows the text as it stands: one that looks like HTML is not taken for it. The
/// end of one that would fill the screen is left out.
QString plainToolTip(const QString& text);

} // namespace brimlow::controls
