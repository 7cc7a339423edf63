#pragma once

#include <QObject>
#include <QUrl>

#include <chrono>

class QNetworkReply;

namespace brimlow {

/// One request for a feed, over https all the way, without cookies, cache or stored passwords. What
/// it needs of the network lives as long as it does; destroyed before it is finished, it is
/// cancelled. Main thread.
class FeedDownload : public QObject {
    Q_OBJECT

public:
    struct Request {
        QUrl address;
        QString userAgent;
        std::chrono::milliseconds patience; // with a server that says nothing
    };

    explicit FeedDownload(const Request& request, QObject* parent = nullptr);
    ~FeedDownload() override;

Q_SIGNALS:
    /// Once, from the event loop. `error` is one sentence on why there is no feed; empty when there
    /// is one.
    void finished(const QByteArray& feed, const QString& error);

private:
    void read();
    void finish();

    QNetworkReply* reply_;
    QByteArray feed_;
};

} // namespace brimlow
