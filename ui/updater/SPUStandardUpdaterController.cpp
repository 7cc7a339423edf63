#include "ui/updater/SPUStandardUpdaterController.h"

#include "platform/NSBundle.h"
#include "ui/updater/SecureAddress.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::NSBundle;

namespace {

/// Empty when there is no such text.
QString textOf(const NSBundle& bundle, const QString& key) {
    return bundle.objectForInfoDictionaryKey(key).toString();
}

QString feedOf(const NSBundle& bundle) {
    return textOf(bundle, u"SUFeedURL"_s);
}

/// Without any, every version is newer.
QString versionOf(const NSBundle& bundle) {
    for (const auto& key : {u"CFBundleShortVersionString"_s, u"CFBundleVersion"_s}) {
        if (const QString version = textOf(bundle, key); !version.isEmpty())
            return version;
    }
    return u"0"_s;
}

} // namespace

SPUStandardUpdaterController::SPUStandardUpdaterController(const NSBundle& mainBundle)
    : updater_(QUrl(feedOf(mainBundle), QUrl::StrictMode), versionOf(mainBundle)) {}

std::unique_ptr<SPUStandardUpdaterController>
SPUStandardUpdaterController::initWithStartingUpdater(bool startingUpdater,
                                                      const NSBundle& mainBundle) {
    std::unique_ptr<SPUStandardUpdaterController> controller(
        new SPUStandardUpdaterController(mainBundle));
    if (startingUpdater)
        controller->updater().startUpdater();
    return controller;
}

std::unique_ptr<SPUStandardUpdaterController>
makeUpdaterControllerIfEligible(const NSBundle& mainBundle) {
    const QString feed = feedOf(mainBundle);
    if (feed.contains("YOUR-DOMAIN"_L1) || !secureAddress(feed))
        return nullptr;
    return SPUStandardUpdaterController::initWithStartingUpdater(true, mainBundle);
}

} // namespace brimlow
