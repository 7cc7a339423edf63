#pragma once

#include "ui/updater/FeedDownload.h"

#include <QObject>
#include <QPointer>
#include <QUrl>

#include <chrono>

namespace brimlow {

namespace controls {
class Sheet;
}

/// Looks whether there is a newer version, each time the user asks, and never by itself. What it
/// finds is shown; nothing is downloaded or installed. Main thread.
class SPUUpdater : public QObject {
    Q_OBJECT

public:
    using Duration = std::chrono::milliseconds;

    /// Asks the feed, which is at an address of https. `patience` is for a silent server.
    SPUUpdater(QUrl feed, QString currentVersion, Duration patience = std::chrono::seconds(15));
    ~SPUUpdater() override;

    /// From now on it does as it is asked; before it does nothing.
    void startUpdater() { started_ = true; }
    /// Returns at once; the answer comes as a window. While one is open it is only brought to the
    /// front, and while the answer is on its way nothing more is asked.
    void checkForUpdates();

private:
    void show(controls::Sheet* sheet);
    void showWaiting();
    void cancel();
    void tell(const QByteArray& bytes, const QString& error);
    void openPage(const QUrl& page);

    QUrl feed_;
    QString currentVersion_;
    Duration patience_;
    bool started_ = false;
    QPointer<FeedDownload> download_; // null but for the time of a request
    QPointer<controls::Sheet> sheet_;
};

} // namespace brimlow
