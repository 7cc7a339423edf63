#include "tools/pictures/Scenes.h"
#include "ui/controls/Sheet.h"
#include "ui/updater/AppcastFeed.h"
#include "ui/updater/UpdateSheets.h"

namespace brimlow::pictures {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QWidget> owned(controls::Sheet* sheet) {
    return std::unique_ptr<QWidget>(sheet);
}

std::unique_ptr<QWidget> newerWith(const QString& notes) {
    const AppcastItem item{.title = u"Version 0.2.0"_s,
                           .version = u"0.2.0"_s,
                           .page = QUrl(u"https://brimlow.example/download"_s),
                           .description = notes};
    return owned(newerVersionSheet(item, u"0.1.0"_s));
}

const QString shortNotes =
    QStringLiteral("<h2>What is new</h2><ul><li>Trackpads that come back after a long sleep are "
                   "noticed at once.</li><li>Profiles &amp; bindings have names as long as you "
                   "like.</li></ul>");

} // namespace

std::unique_ptr<QWidget> makeUpdateNewer() {
    return newerWith(shortNotes);
}

std::unique_ptr<QWidget> makeUpdateNewerLong() {
    return newerWith(shortNotes.repeated(6));
}

std::unique_ptr<QWidget> makeUpdateNewerBare() {
    return newerWith({});
}

std::unique_ptr<QWidget> makeUpdateChecking() {
    return owned(checkingSheet());
}

std::unique_ptr<QWidget> makeUpToDate() {
    return owned(upToDateSheet(u"0.1.0"_s));
}

std::unique_ptr<QWidget> makeUpdateFailed() {
    return owned(checkFailedSheet(u"The server could not be reached."_s));
}

} // namespace brimlow::pictures
