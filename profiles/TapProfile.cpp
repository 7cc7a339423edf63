#include "profiles/TapProfile.h"

#include "profiles/JsonWriter.h"

namespace brimlow {

using namespace Qt::StringLiterals;

void TapProfile::write(json::Writer& writer) const {
    writer.beginObject();
    writer.member("id", id);
    writer.member("name", name);
    writer.member("bindings", bindings);
    writer.endObject();
}

std::optional<TapProfile> TapProfile::fromJson(const QJsonValue& value, json::DateStrategy dates) {
    const auto id = json::uuid(value[u"id"_s]);
    const auto name = json::text(value[u"name"_s]);
    auto bindings = json::list(value[u"bindings"_s], [dates](const QJsonValue& each) {
        return TapPositionMapping::fromJson(each, dates);
    });
    if (!id || !name || !bindings)
        return std::nullopt;
    return TapProfile{*id, *name, std::move(*bindings)};
}

} // namespace brimlow
