#include "profiles/JsonValues.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace brimlow::json {

using namespace Qt::StringLiterals;
using platform::Date;

namespace {

constexpr double year2001 = 978307200.0; // in seconds since 1970

std::optional<Date> iso8601Date(const QString& text) {
    // Qt alone would also take fractions, bare dates, missing zones and the hour 24.
    static const QRegularExpression form(
        uR"(\A\d{4}-\d\d-\d\dT([01]\d|2[0-3]):\d\d:\d\d(Z|[+-]\d\d:\d\d)\z)"_s);
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const auto moment = QDateTime::fromString(text, Qt::ISODate);
    if (!moment.isValid())
        return std::nullopt;
    return Date{static_cast<double>(moment.toSecsSinceEpoch())};
}

QJsonValue iso8601Value(Date date) {
    constexpr double year1 = -62135596800.0;
    constexpr double year10000 = 253402300800.0; // four digits have no room for it
    const double seconds = date.secondsSince1970;
    if (!(seconds >= year1 && seconds < year10000))
        return std::numeric_limits<double>::quiet_NaN();
    const auto whole = static_cast<qint64>(std::floor(seconds));
    return QDateTime::fromSecsSinceEpoch(whole, Qt::UTC).toString(Qt::ISODate);
}

} // namespace

std::optional<QString> text(const QJsonValue& value) {
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<bool> boolean(const QJsonValue& value) {
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<double> number(const QJsonValue& value) {
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<qint64> integer(const QJsonValue& value) {
    const qint64 result = value.toInteger(0);
    // Whatever is no integer gives the default back, whichever it is.
    return result == value.toInteger(1) ? std::optional(result) : std::nullopt;
}

std::optional<std::uint32_t> unsigned32(const QJsonValue& value) {
    const auto result = integer(value);
    if (!result || *result < 0 || *result > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(*result);
}

std::optional<QUuid> uuid(const QString& text) {
    static const QRegularExpression form(
        uR"(\A[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\z)"_s);
    return form.match(text).hasMatch() ? std::optional(QUuid::fromString(text)) : std::nullopt;
}

std::optional<QUuid> uuid(const QJsonValue& value) {
    return uuid(value.toString()); // what is no text reads as the empty one
}

std::optional<Date> date(const QJsonValue& value, DateStrategy strategy) {
    if (strategy == DateStrategy::iso8601)
        return iso8601Date(value.toString());
    const auto seconds = number(value);
    return seconds ? std::optional(Date{*seconds + year2001}) : std::nullopt;
}

QString uuidText(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QJsonValue dateValue(Date date, DateStrategy strategy) {
    if (strategy == DateStrategy::iso8601)
        return iso8601Value(date);
    return date.secondsSince1970 - year2001;
}

std::optional<QByteArray> bytes(const QJsonArray& document) {
    if (!isEncodable(document))
        return std::nullopt;
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

bool isEncodable(const QJsonValue& value) {
    switch (value.type()) {
    case QJsonValue::Double:
        return std::isfinite(value.toDouble());
    case QJsonValue::Array: {
        const auto array = value.toArray();
        return std::ranges::all_of(array, isEncodable);
    }
    case QJsonValue::Object: {
        const auto object = value.toObject();
        return std::ranges::all_of(object, isEncodable);
    }
    default:
        return true;
    }
}

} // namespace brimlow::json
