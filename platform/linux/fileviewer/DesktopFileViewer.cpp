#include "platform/linux/fileviewer/DesktopFileViewer.h"

#include "platform/Streams.h"
#include "platform/linux/applications/DefaultApplication.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QUrl>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

void openFolderOf(const QString& path) {
    const QString folder = QFileInfo(path).absolutePath();
    const QString complaint = openWithDefaultApplication(folder);
    if (!complaint.isEmpty())
        printErrorLine(u"Brimlow: no file manager shows \"%1\": %2"_s.arg(folder, complaint));
}

} // namespace

void DesktopFileViewer::reveal(const QString& path) {
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
                                               u"/org/freedesktop/FileManager1"_s,
                                               u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << QString();
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call),
                                               QCoreApplication::instance());
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [path, answer] {
        answer->deleteLater();
        if (answer->isError())
            openFolderOf(path);
    });
}

} // namespace brimlow::platform
