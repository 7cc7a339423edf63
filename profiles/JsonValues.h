#pragma once

#include "platform/Date.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

/// The forms that values take in our JSON documents. Reading is strict: nothing is converted, and
/// a value of another type, null or none at all is no value. Any thread.
namespace brimlow::json {

/// A document decides how its dates look.
enum class DateStrategy {
    secondsSince2001, // a number, fractions and all, from 2001-01-01 00:00:00 UTC
    iso8601,          // "2026-11-16T20:25:00Z", whole seconds
};

/// Half a surrogate pair, which no well-formed file could take again, becomes a question mark.
std::optional<QString> text(const QJsonValue& value);
std::optional<bool> boolean(const QJsonValue& value);
std::optional<double> number(const QJsonValue& value);
/// 1.0 is one, 1.5 is none.
std::optional<qint64> integer(const QJsonValue& value);
std::optional<std::uint32_t> unsigned32(const QJsonValue& value);
/// Exactly the 36 characters of the canonical form, in either case; all zeros are an id as well.
std::optional<QUuid> uuid(const QString& text);
std::optional<QUuid> uuid(const QJsonValue& value);
/// ISO 8601 needs a zone, "Z" or "+01:00", has no fractions of seconds, and ends with year 9999.
std::optional<platform::Date> date(const QJsonValue& value, DateStrategy strategy);

/// The list of what `decode` makes of each element; none if `value` is no list or an element fails.
template<typename Decode>
auto list(const QJsonValue& value, Decode decode)
    -> std::optional<std::vector<typename decltype(decode(value))::value_type>> {
    if (!value.isArray())
        return std::nullopt;
    std::vector<typename decltype(decode(value))::value_type> result;
    const QJsonArray array = value.toArray();
    result.reserve(static_cast<std::size_t>(array.size()));
    for (const auto& element : array) {
        auto decoded = decode(element);
        if (!decoded)
            return std::nullopt;
        result.push_back(std::move(*decoded));
    }
    return result;
}

/// Whether an optional member is acceptable: absent or null, or read into `field` by `decode`.
template<typename T, typename Decode>
bool readIfPresent(const QJsonValue& value, std::optional<T>& field, Decode decode) {
    if (value.isUndefined() || value.isNull())
        return true;
    field = decode(value);
    return field.has_value();
}

/// Upper case, without braces.
QString uuidText(const QUuid& id);
/// Whole seconds in UTC, "2026-11-16T20:25:00Z"; a null text for a year beyond four digits.
QString iso8601Text(platform::Date date);
double secondsSince2001(platform::Date date);

} // namespace brimlow::json
