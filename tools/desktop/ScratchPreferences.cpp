#include "tools/desktop/ScratchPreferences.h"

#include "platform/NSUserDefaults.h"
#include "platform/Streams.h"
#include "profiles/JsonWriter.h"
#include "profiles/TapPositionMappings.h"

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

TapPositionMapping bindingAt(const QString& name, double x, double y, TapAction action) {
    TapPositionMapping binding{.id = QUuid::createUuid(), .name = name, .action = action};
    binding.samples = {{x, y}};
    binding.explicitMatchRadius = 0.1;
    return binding;
}

void writePreferences(const QProcessEnvironment& environment,
                      const std::vector<TapPositionMapping>& bindings, const QString& profileName) {
    const TapProfile profile{QUuid::createUuid(), profileName, bindings};
    json::Writer writer(json::DateStrategy::secondsSince2001);
    writer.value(std::vector{profile});

    platform::StandardStreams log;
    platform::NSUserDefaults defaults(
        environment.value(u"XDG_CONFIG_HOME"_s) + u"/brimlow/preferences.json"_s, log);
    defaults.setData(writer.bytes().value(), TapPositionMappings::profilesKey.toString());
    defaults.setString(json::uuidText(profile.id), TapPositionMappings::activeKey.toString());
    defaults.setBool(true, u"hasCompletedOnboarding"_s);
}

} // namespace brimlow::desktop
