#include "profiles/JsonValues.h"

#include <QDateTime>

#include <algorithm>
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

/// Whether `text` looks like `form`, in which 0 stands for any digit and x for a hexadecimal one.
bool hasForm(QStringView text, QStringView form) {
    const auto fits = [](QChar each, QChar wanted) {
        const char16_t letter = each.toUpper().unicode();
        const bool digit = letter >= u'0' && letter <= u'9';
        if (wanted == u'0')
            return digit;
        return wanted == u'x' ? digit || (letter >= u'A' && letter <= u'F') : each == wanted;
    };
    return std::equal(text.begin(), text.end(), form.begin(), form.end(), fits);
}

/// Seconds in hours and minutes, "hh:mm"; none beyond a day.
std::optional<int> secondsIn(QStringView hoursAndMinutes) {
    const int hours = hoursAndMinutes.first(2).toInt();
    const int minutes = hoursAndMinutes.last(2).toInt();
    return hours < 24 && minutes < 60 ? std::optional(hours * 3600 + minutes * 60) : std::nullopt;
}

/// By hand: Qt also takes fractions, bare dates, missing zones and the hour 24, and is slow.
std::optional<Date> iso8601Date(QStringView text) {
    constexpr qsizetype zoneBegin = 19;
    const QStringView zone = text.sliced(std::min(zoneBegin, text.size()));
    const bool utc = zone == u"Z";
    if (!hasForm(text.chopped(zone.size()), u"0000-00-00T00:00:00")
        || !(utc || hasForm(zone, u"+00:00") || hasForm(zone, u"-00:00")))
        return std::nullopt;
    const QDate day(text.first(4).toInt(), text.sliced(5, 2).toInt(), text.sliced(8, 2).toInt());
    const auto time = secondsIn(text.sliced(11, 5));
    const int seconds = text.sliced(17, 2).toInt();
    const auto offset = utc ? std::optional(0) : secondsIn(zone.sliced(1));
    if (!day.isValid() || !time || seconds > 59 || !offset)
        return std::nullopt;
    const double local =
        static_cast<double>(QDate(1970, 1, 1).daysTo(day)) * 86400 + *time + seconds;
    const double result = zone.front() == u'-' ? local + *offset : local - *offset;
    return hasFourDigitYear(result) ? std::optional(Date{result}) : std::nullopt;
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
    const bool canonical = hasForm(text, u"xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx");
    return canonical ? std::optional(QUuid::fromString(text)) : std::nullopt;
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
