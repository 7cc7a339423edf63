#include "profiles/JsonValues.h"

#include <QDateTime>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace brimlow::json {

using namespace Qt::StringLiterals;
using platform::Date;

namespace {

// Beginnings of years, in seconds since 1970.
constexpr double year1 = -62135596800.0;
constexpr double year2001 = 978307200.0;
constexpr double year10000 = 253402300800.0;

/// Whether ISO 8601 has room for it, in UTC.
bool hasFourDigitYear(double secondsSince1970) {
    return secondsSince1970 >= year1 && secondsSince1970 < year10000;
}

std::optional<Date> iso8601Date(const QString& text) {
    // Qt alone would also take fractions, bare dates, missing zones and the hour 24.
    static const QRegularExpression form(
        uR"(\A\d{4}-\d\d-\d\dT([01]\d|2[0-3]):\d\d:\d\d(Z|[+-]\d\d:\d\d)\z)"_s);
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const auto moment = QDateTime::fromString(text, Qt::ISODate);
    const auto seconds = static_cast<double>(moment.toSecsSinceEpoch());
    return moment.isValid() && hasFourDigitYear(seconds) ? std::optional(Date{seconds})
                                                         : std::nullopt;
}

} // namespace

std::optional<QString> text(const QJsonValue& value) {
    if (!value.isString())
        return std::nullopt;
    const QString text = value.toString();
    return text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
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
    // Qt alone would also take braces around it, and anything behind it.
    const QUuid id = QUuid::fromString(text);
    return uuidText(id) == text.toUpper() ? std::optional(id) : std::nullopt;
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

QString iso8601Text(Date date) {
    if (!hasFourDigitYear(date.secondsSince1970))
        return {};
    const auto whole = static_cast<qint64>(std::floor(date.secondsSince1970));
    return QDateTime::fromSecsSinceEpoch(whole, Qt::UTC).toString(Qt::ISODate);
}

double secondsSince2001(Date date) {
    return date.secondsSince1970 - year2001;
}

} // namespace brimlow::json
