// The binding's JSON form. Its keys are the names of its fields.

#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "profiles/JsonWriter.h"
#include "profiles/TapPositionMapping.h"

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

bool clickRequiredByDefault() {
    const auto& preferences = platform::Platform::current().standardUserDefaults;
    return !preferences.boolForKey(u"tapToClick"_s).value_or(false);
}

} // namespace

void TapPositionMapping::write(json::Writer& writer) const {
    writer.beginObject();
    writer.member("id", id);
    writer.member("name", name);
    writer.member("action", rawValue(action));
    writer.member("appName", appName);
    writer.member("windowTitle", windowTitle);
    if (targetWindowID)
        writer.member("targetWindowID", qint64{*targetWindowID});
    writer.member("samples", samples);
    writer.member("lastRecordedAt", lastRecordedAt);
    writer.member("matchTolerance", matchTolerance);
    writer.member("explicitMatchRadius", explicitMatchRadius);
    writer.member("minimumPressure", minimumPressure);
    writer.member("requireClick", requireClick);
    writer.member("clickForce", clickForce);
    writer.endObject();
}

std::optional<TapPositionMapping> TapPositionMapping::fromJson(const QJsonValue& value,
                                                               json::DateStrategy dates) {
    const auto id = json::uuid(value[u"id"_s]);
    const auto name = json::text(value[u"name"_s]);
    const auto action = tapActionFromJson(value[u"action"_s]);
    if (!id || !name || !action)
        return std::nullopt;

    TapPositionMapping result{.id = *id, .name = *name, .action = *action};
    const auto readDate = [&](const QJsonValue& each) { return json::date(each, dates); };
    if (!json::readIfPresent(value[u"appName"_s], result.appName, json::text)
        || !json::readIfPresent(value[u"windowTitle"_s], result.windowTitle, json::text)
        || !json::readIfPresent(value[u"targetWindowID"_s], result.targetWindowID, json::unsigned32)
        || !json::readIfPresent(value[u"lastRecordedAt"_s], result.lastRecordedAt, readDate))
        return std::nullopt;

    if (auto samples = json::list(value[u"samples"_s], TapSample::fromJson))
        result.samples = std::move(*samples);
    result.matchTolerance =
        json::number(value[u"matchTolerance"_s]).value_or(result.matchTolerance);
    result.explicitMatchRadius = json::number(value[u"explicitMatchRadius"_s]);
    result.minimumPressure =
        json::number(value[u"minimumPressure"_s]).value_or(result.minimumPressure);
    const auto requireClick = json::boolean(value[u"requireClick"_s]);
    result.requireClick = requireClick ? *requireClick : clickRequiredByDefault();
    result.clickForce = json::number(value[u"clickForce"_s]).value_or(result.clickForce);
    return result;
}

} // namespace brimlow
