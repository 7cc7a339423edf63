#include "ui/updater/SPUUpdater.h"

#include "ui/controls/Sheet.h"
#include "ui/updater/AppcastFeed.h"
#include "ui/updater/UpdateSheets.h"
#include "ui/updater/VersionOrder.h"

#include <QDesktopServices>
#include <QTimer>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using controls::Sheet;

namespace {

// A quick answer needs no window that comes and goes before it.
constexpr auto unremarkable = 500ms;

void bringToFront(Sheet& sheet) {
    sheet.setWindowState(sheet.windowState() & ~Qt::WindowMinimized);
    sheet.show();
    sheet.raise();
    sheet.activateWindow();
}

} // namespace

SPUUpdater::SPUUpdater(QUrl feed, QString currentVersion, Duration patience)
    : feed_(std::move(feed)), currentVersion_(std::move(currentVersion)), patience_(patience) {}

SPUUpdater::~SPUUpdater() {
    delete download_;
    delete sheet_;
}

void SPUUpdater::checkForUpdates() {
    if (sheet_ && sheet_->isVisible()) {
        bringToFront(*sheet_);
        return;
    }
    if (!started_ || download_)
        return;
    download_ = new FeedDownload(
        {.address = feed_, .userAgent = u"Brimlow/"_s + currentVersion_, .patience = patience_});
    connect(download_, &FeedDownload::finished, this, &SPUUpdater::tell);
    QTimer::singleShot(unremarkable, download_, [this] { showWaiting(); });
}

void SPUUpdater::show(Sheet* sheet) {
    if (sheet_)
        sheet_->close();
    sheet_ = sheet;
    bringToFront(*sheet);
}

void SPUUpdater::showWaiting() {
    auto* sheet = checkingSheet();
    connect(sheet, &QDialog::rejected, this, &SPUUpdater::cancel);
    show(sheet);
}

void SPUUpdater::cancel() {
    // Not at once: this may be the request's own answer.
    if (FeedDownload* download = std::exchange(download_, nullptr)) {
        download->disconnect(this);
        download->deleteLater();
    }
}

void SPUUpdater::tell(const QByteArray& bytes, const QString& error) {
    cancel();
    if (!error.isEmpty()) {
        show(checkFailedSheet(error));
        return;
    }
    const AppcastFeed feed = readAppcast(bytes);
    if (!feed.newest) {
        show(checkFailedSheet(feed.error));
    } else if (compareVersions(feed.newest->version, currentVersion_) > 0) {
        auto* sheet = newerVersionSheet(*feed.newest, currentVersion_);
        connect(sheet, &QDialog::accepted, this,
                [this, page = feed.newest->page] { openPage(page); });
        show(sheet);
    } else {
        show(upToDateSheet(currentVersion_));
    }
}

void SPUUpdater::openPage(const QUrl& page) {
    if (!page.isEmpty() && !QDesktopServices::openUrl(page))
        show(pageNotOpenedSheet(page.toString()));
}

} // namespace brimlow
