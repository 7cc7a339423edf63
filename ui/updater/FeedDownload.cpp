#include "ui/updater/FeedDownload.h"

#include "ui/updater/AppcastFeed.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslSocket>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5;

QNetworkRequest makeRequest(const FeedDownload::Request& wanted) {
    QNetworkRequest request(wanted.address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setTransferTimeout(static_cast<int>(wanted.patience.count()));
    request.setHeader(QNetworkRequest::UserAgentHeader, wanted.userAgent);
    // Nothing compressed: a few bytes cannot become a flood.
    request.setRawHeader("Accept-Encoding"_ba, "identity"_ba);
    for (const auto kept :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(kept, QNetworkRequest::Manual);
    return request;
}

QString whyNot(const QNetworkReply& reply) {
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    switch (reply.error()) {
    case QNetworkReply::NoError:
        return {};
    case QNetworkReply::OperationCanceledError: // the transfer timeout
    case QNetworkReply::TimeoutError:
        return u"The server did not answer in time."_s;
    case QNetworkReply::SslHandshakeFailedError:
        return u"The server could not prove that it is the right one."_s;
    case QNetworkReply::InsecureRedirectError:
        return u"The server points to an address that is not secure."_s;
    default:
        return status >= 400 ? u"The server answered with error %1."_s.arg(status)
                             : u"The server could not be reached."_s;
    }
}

} // namespace

FeedDownload::FeedDownload(const Request& request, QObject* parent) : QObject(parent) {
    auto* network = new QNetworkAccessManager(this);
    reply_ = network->get(makeRequest(request));
    reply_->setReadBufferSize(largestFeed);
    connect(reply_, &QNetworkReply::readyRead, this, &FeedDownload::read);
    connect(reply_, &QNetworkReply::finished, this, &FeedDownload::finish);
}

FeedDownload::~FeedDownload() {
    reply_->disconnect(this); // going away, it tells that it was cancelled
}

void FeedDownload::read() {
    feed_ += reply_->readAll();
    if (feed_.size() > largestFeed)
        reply_->abort();
}

void FeedDownload::finish() {
    if (!QSslSocket::supportsSsl())
        Q_EMIT finished({}, u"Secure connections do not work here: OpenSSL, or Qt's plugin for it, "
                            u"is missing."_s);
    else if (feed_.size() > largestFeed)
        Q_EMIT finished({}, u"The list of versions is too long."_s);
    else
        Q_EMIT finished(feed_, whyNot(*reply_));
}

} // namespace brimlow
