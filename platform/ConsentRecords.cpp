#include "platform/ConsentRecords.h"

#include "platform/AtomicFile.h"
#include "platform/JsonText.h"
#include "platform/RegularFile.h"

#include <QDir>
#include <QFile>

#include <cmath>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

const QString aboutKey = u"about"_s;
const QString declinedAtKey = u"declinedAt"_s; // seconds since 1970
constexpr qsizetype largestFile = 1 << 20;     // bytes

} // namespace

QString ConsentRecords::standardPath() {
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(named) ? named : QDir::homePath() + u"/.local/state"_s)
           + u"/brimlow/consent.json"_s;
}

QJsonObject ConsentRecords::read() const {
    return parsedJson(readRegularFile(path_, largestFile).bytes).object();
}

bool ConsentRecords::isDeclined(const QString& service, const QString& about, Date now) const {
    const QJsonObject record = read().value(service).toObject();
    const double age = now.secondsSince1970 - record.value(declinedAtKey).toDouble();
    return record.value(aboutKey).toString() == about && std::abs(age) < validity;
}

void ConsentRecords::decline(const QString& service, const QString& about, Date now) const {
    QJsonObject records = read();
    records.insert(service, QJsonObject{{aboutKey, about}, {declinedAtKey, now.secondsSince1970}});
    (void)replaceFile(path_, jsonText(QJsonDocument(records), QJsonDocument::Indented));
}

Outcome ConsentRecords::reset(const QString& service) const {
    QJsonObject records = read();
    records.remove(service);
    if (service == "All"_L1 || records.isEmpty()) {
        QFile file(path_);
        return !file.exists() || file.remove() ? Outcome::success()
                                               : Outcome::failure(file.errorString());
    }
    const auto replacement =
        replaceFile(path_, jsonText(QJsonDocument(records), QJsonDocument::Indented));
    return replacement.done ? Outcome::success()
                            : Outcome::failure(replacement.complaint.value_or(QString()));
}

} // namespace brimlow::platform
