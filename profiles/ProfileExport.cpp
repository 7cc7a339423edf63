#include "profiles/ProfileExport.h"

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr auto exportedDates = json::DateStrategy::iso8601;

} // namespace

QJsonObject ProfileExport::toJson() const {
    return {{u"format"_s, format},
            {u"version"_s, version},
            {u"exportedAt"_s, json::dateValue(exportedAt, exportedDates)},
            {u"profile"_s, profile.toJson(exportedDates)}};
}

std::optional<ProfileExport> ProfileExport::fromJson(const QJsonValue& value) {
    const auto format = json::text(value[u"format"_s]);
    const auto version = json::integer(value[u"version"_s]);
    const auto exportedAt = json::date(value[u"exportedAt"_s], exportedDates);
    auto profile = TapProfile::fromJson(value[u"profile"_s], exportedDates);
    if (!format || !version || !exportedAt || !profile)
        return std::nullopt;
    return ProfileExport{*format, *version, *exportedAt, std::move(*profile)};
}

} // namespace brimlow
