#include "profiles/TapProfile.h"

namespace brimlow {

using namespace Qt::StringLiterals;

QJsonObject TapProfile::toJson(json::DateStrategy dates) const {
    QJsonArray array;
    for (const TapPositionMapping& binding : bindings)
        array.append(binding.toJson(dates));
    return {{u"id"_s, json::uuidText(id)}, {u"name"_s, name}, {u"bindings"_s, array}};
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
