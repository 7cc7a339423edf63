#include "profiles/TapPositionMappings.h"

#include "platform/JsonText.h"
#include "profiles/BlankTrimming.h"
#include "profiles/DefaultLayout.h"
#include "profiles/JsonWriter.h"

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::NSUserDefaults;

namespace {

constexpr int newProfileSeedCount = 10;
constexpr auto storedDates = json::DateStrategy::secondsSince2001;

TapProfile newProfile(const QString& name, std::vector<TapPositionMapping> bindings) {
    return {QUuid::createUuid(), name, std::move(bindings)};
}

template<typename Record>
std::optional<std::vector<Record>> storedList(const NSUserDefaults& defaults, QStringView key) {
    const auto data = defaults.dataForKey(key.toString());
    const auto document = platform::parsedJson(data.value_or(QByteArray()));
    if (!document.isArray())
        return std::nullopt;
    return json::list(document.array(),
                      [](const QJsonValue& each) { return Record::fromJson(each, storedDates); });
}

QUuid storedActiveId(const NSUserDefaults& defaults, const std::vector<TapProfile>& profiles) {
    const auto id = json::uuid(
        defaults.stringForKey(TapPositionMappings::activeKey.toString()).value_or(QString()));
    const bool known = id && std::ranges::find(profiles, *id, &TapProfile::id) != profiles.end();
    return known ? *id : profiles.front().id;
}

} // namespace

TapPositionMappings::TapPositionMappings(int defaultSeedCount, NSUserDefaults& defaults)
    : TapPositionMappings(defaults, load(defaultSeedCount, defaults)) {}

TapPositionMappings::TapPositionMappings(NSUserDefaults& defaults, Contents contents)
    : profiles(*this, std::move(contents.profiles), [this] { saveProfiles(); }),
      activeProfileId(*this, contents.activeProfileId, [this] { saveActive(); }),
      defaults_(defaults) {
    if (contents.stored)
        return;
    saveProfiles();
    saveActive();
}

TapPositionMappings::Contents TapPositionMappings::load(int defaultSeedCount,
                                                        NSUserDefaults& defaults) {
    auto stored = storedList<TapProfile>(defaults, profilesKey);
    if (stored && !stored->empty()) {
        const QUuid active = storedActiveId(defaults, *stored);
        return {std::move(*stored), active, true};
    }
    if (!stored)
        defaults.keepDamagedValueForKey(profilesKey.toString()); // about to be replaced

    auto bindings = storedList<TapPositionMapping>(defaults, legacyKey);
    if (!bindings || bindings->empty())
        bindings = buildDefaultLayout(defaultSeedCount);
    const TapProfile profile = newProfile(u"Default"_s, std::move(*bindings));
    return {{profile}, profile.id, false};
}

const TapProfile* TapPositionMappings::activeProfile() const {
    const auto index = activeProfileIndex();
    return index ? &profiles.get()[*index] : nullptr;
}

std::optional<std::size_t> TapPositionMappings::activeProfileIndex() const {
    const auto found = std::ranges::find(profiles.get(), activeProfileId.get(), &TapProfile::id);
    if (found == profiles->end())
        return std::nullopt;
    return static_cast<std::size_t>(found - profiles->begin());
}

void TapPositionMappings::switchTo(const QUuid& profileId) {
    if (std::ranges::find(profiles.get(), profileId, &TapProfile::id) != profiles->end())
        activeProfileId = profileId;
}

void TapPositionMappings::editActiveBindings(
    const std::function<void(std::vector<TapPositionMapping>&)>& edit) {
    const auto index = activeProfileIndex();
    if (!index)
        return;
    auto edited = profiles.get();
    edit(edited[*index].bindings);
    profiles = std::move(edited);
}

void TapPositionMappings::add(const TapPositionMapping& binding) {
    editActiveBindings([&](auto& bindings) { bindings.push_back(binding); });
}

void TapPositionMappings::update(const TapPositionMapping& binding) {
    const TapProfile* active = activeProfile();
    if (!active)
        return;
    const auto found = std::ranges::find(active->bindings, binding.id, &TapPositionMapping::id);
    if (found == active->bindings.end())
        return;
    const auto index = found - active->bindings.begin();
    editActiveBindings([&](auto& bindings) { *(bindings.begin() + index) = binding; });
}

void TapPositionMappings::remove(const QUuid& id) {
    editActiveBindings([&](auto& bindings) {
        std::erase_if(bindings, [&](const auto& each) { return each.id == id; });
    });
}

void TapPositionMappings::resetToDefaultLayout(int count) {
    editActiveBindings([&](auto& bindings) { bindings = buildDefaultLayout(count); });
}

void TapPositionMappings::clearAllBindings() {
    editActiveBindings([](auto& bindings) { bindings.clear(); });
}

QUuid TapPositionMappings::createProfile(const QString& name) {
    const QStringView trimmed = trimmedBlanks(name);
    return addActiveProfile(trimmed.isEmpty() ? u"Untitled"_s : trimmed.toString(),
                            buildDefaultLayout(newProfileSeedCount));
}

QUuid TapPositionMappings::addActiveProfile(const QString& name,
                                            std::vector<TapPositionMapping> bindings) {
    auto edited = profiles.get();
    edited.push_back(newProfile(name, std::move(bindings)));
    const QUuid id = edited.back().id;
    profiles = std::move(edited);
    activeProfileId = id;
    return id;
}

void TapPositionMappings::renameProfile(const QUuid& id, const QString& name) {
    const QStringView trimmed = trimmedBlanks(name);
    auto edited = profiles.get();
    const auto found = std::ranges::find(edited, id, &TapProfile::id);
    if (trimmed.isEmpty() || found == edited.end())
        return;
    found->name = trimmed.toString();
    profiles = std::move(edited);
}

// By value: the caller's id may be the one in the profile that goes.
void TapPositionMappings::removeProfile(QUuid id) {
    auto remaining = profiles.get();
    std::erase_if(remaining, [&](const auto& each) { return each.id == id; });
    profiles = std::move(remaining);
    if (profiles->empty()) {
        const TapProfile fresh = newProfile(u"Default"_s, buildDefaultLayout(newProfileSeedCount));
        profiles = {fresh};
        activeProfileId = fresh.id;
    } else if (activeProfileId.get() == id) {
        activeProfileId = profiles->front().id;
    }
}

void TapPositionMappings::saveProfiles() {
    json::Writer writer(storedDates);
    writer.value(profiles.get());
    if (const auto bytes = writer.bytes())
        defaults_.setData(*bytes, profilesKey.toString());
}

void TapPositionMappings::saveActive() {
    defaults_.setString(json::uuidText(activeProfileId), activeKey.toString());
}

} // namespace brimlow
