#include "ui/controls/ElidedText.h"

namespace brimlow::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLine = 400;    // more than fits into any line
constexpr qsizetype longestToolTip = 600; // a few lines
constexpr auto dots = u'\u2026';

bool breaksLine(QChar character) {
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator
           || character == QChar::ParagraphSeparator;
}

} // namespace

QString elidedText(const QString& text, const QFontMetrics& metrics, int width) {
    QString line = text.left(longestLine);
    for (QChar& character : line)
        if (breaksLine(character))
            character = u' ';
    if (text.size() > longestLine)
        line += dots; // what is so narrow that all of it fits, as marks on one letter
    return metrics.elidedText(line, Qt::ElideRight, width);
}

QString plainToolTip(const QString& text) {
    const bool isLong = text.size() > longestToolTip;
    const QString shown = isLong ? text.left(longestToolTip) + dots : text;
    return u"<qt>"_s + shown.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s;
}

} // namespace brimlow::controls
