#include "profiles/ProfileExport.h"

#include "platform/JsonText.h"
#include "profiles/JsonWriter.h"

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr auto exportedDates = json::DateStrategy::iso8601;

} // namespace

std::optional<QByteArray> ProfileExport::bytes() const {
    json::Writer writer(exportedDates);
    writer.beginObject();
    writer.member("format", format);
    writer.member("version", version);
    writer.member("exportedAt", exportedAt);
    writer.key("profile");
    profile.write(writer);
    writer.endObject();
    const auto compact = writer.bytes();
    if (!compact)
        return std::nullopt;
    return platform::jsonText(platform::parsedJson(*compact),
                              QJsonDocument::Indented); // sorts, too
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
