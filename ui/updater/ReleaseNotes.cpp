#include "ui/updater/ReleaseNotes.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>
#include <QVariant>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

// Characters. Qt takes time with the square of how deep elements are nested, and with the length of
// the text each time it scrolls.
constexpr qsizetype longestHtml = 16'000;
constexpr qsizetype longestNotes = 8'000;

/// Qt's own, and its fragments, read every local file that HTML names as a style sheet.
class LoneDocument : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl&) override { return QByteArray(); }
};

QString beginning(const QString& text, qsizetype length) {
    return text.size() <= length ? text : text.first(length) + u'…';
}

QString textOf(const QTextBlock& block) {
    QString text = block.text();
    text.remove(QChar::ObjectReplacementCharacter); // stands for a picture
    return text.replace(QChar::LineSeparator, u'\n').trimmed();
}

} // namespace

QString plainNotes(const QString& html) {
    LoneDocument document;
    document.setHtml(beginning(html, longestHtml));
    QString notes;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString text = textOf(block);
        if (!text.isEmpty())
            notes += block.textList() ? u"\n• "_s + text : u"\n\n"_s + text;
    }
    return beginning(notes.trimmed(), longestNotes);
}

} // namespace brimlow
