// The input is a profile file from anywhere.

#include "fuzz/Require.h"
#include "profiles/BlankTrimming.h"
#include "profiles/ProfileImportError.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <algorithm>

namespace brimlow::fuzz {

using namespace Qt::StringLiterals;

namespace {

/// Made once, because it costs more than an execution may.
struct Receiver {
    test::TestPlatform world;
    const std::vector<TapProfile> before{
        {.id = QUuid::createUuid(), .name = u"Imported"_s, .bindings = {}},
        {.id = QUuid::createUuid(),
         .name = u"Work"_s,
         .bindings = {{.id = QUuid::createUuid(), .name = u"Spot"_s}}}};
    TapPositionMappings store{1, world.defaults};
    int writes = 0;
    platform::Subscription counting = world.defaults.observeWillChange([this] { ++writes; });

    void reset() {
        store.profiles = before;
        store.activeProfileId = before.back().id;
        world.log.take();
        writes = 0;
    }
};

void checkRefusal(const Receiver& receiver, const ProfileImportError& error) {
    require(receiver.writes == 0, "a refused file writes nothing");
    require(receiver.store.profiles.get() == receiver.before, "a refused file changes no profile");
    require(receiver.store.activeProfileId.get() == receiver.before.back().id,
            "a refused file leaves the active profile");
    require(error.kind() != ProfileImportError::Kind::tooNew
                || error.version() > ProfileExport::currentVersion,
            "a file that is too new says so");
}

/// The id of the profile that took the bindings; none where the file was refused.
std::optional<QUuid> imported(Receiver& receiver, const QByteArray& data, bool asNew) {
    try {
        return receiver.store.importProfile(data, asNew);
    } catch (const ProfileImportError& error) {
        checkRefusal(receiver, error);
        return std::nullopt;
    }
}

std::vector<TapPositionMapping> activeBindings(const TapPositionMappings& store) {
    require(store.activeProfile() != nullptr, "there is an active profile");
    return store.activeProfile()->bindings;
}

std::vector<TapPositionMapping> withoutIds(std::vector<TapPositionMapping> bindings) {
    for (TapPositionMapping& binding : bindings)
        binding.id = {};
    return bindings;
}

void checkBindings(const TapPositionMappings& store) {
    for (const TapPositionMapping& binding : activeBindings(store))
        require(!binding.targetWindowID, "no window's number is taken over");
}

void checkNewProfile(const Receiver& receiver, const QUuid& id) {
    const auto& profiles = receiver.store.profiles.get();
    require(profiles.size() == receiver.before.size() + 1, "there is one more profile");
    require(std::equal(receiver.before.begin(), receiver.before.end(), profiles.begin()),
            "the other profiles stay");
    require(receiver.store.activeProfileId.get() == id && profiles.back().id == id,
            "the new profile is active and its id returned");
    const QString name = profiles.back().name;
    require(!name.isEmpty() && trimmedBlanks(name) == name, "the new profile has a trimmed name");
    require(std::ranges::count(profiles, name, &TapProfile::name) == 1, "its name is its own");
}

void checkReplacement(const Receiver& receiver, const QUuid& id) {
    auto expected = receiver.before;
    expected.back().bindings = activeBindings(receiver.store);
    require(id == expected.back().id && receiver.store.activeProfileId.get() == id,
            "the replaced profile stays active");
    require(receiver.store.profiles.get() == expected, "only bindings are replaced");
}

void checkRoundTrip(Receiver& receiver) {
    const auto sent = withoutIds(activeBindings(receiver.store));
    const auto file = receiver.store.exportActiveProfileData();
    require(file.has_value(), "what was imported can be exported");
    require(receiver.store.canDecodeProfile(*file), "what was exported can be imported");
    require(imported(receiver, *file, true).has_value(), "what was exported is imported");
    require(withoutIds(activeBindings(receiver.store)) == sent, "the bindings come back");
}

void check(Receiver& receiver, const QByteArray& data, bool asNew) {
    const bool decodable = receiver.store.canDecodeProfile(data);
    const auto id = imported(receiver, data, asNew);
    require(id.has_value() == decodable, "canDecodeProfile tells what importProfile does");
    if (!id)
        return;
    checkBindings(receiver.store);
    asNew ? checkNewProfile(receiver, *id) : checkReplacement(receiver, *id);
    if (asNew)
        checkRoundTrip(receiver);
    receiver.reset();
}

} // namespace

} // namespace brimlow::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static brimlow::fuzz::Receiver receiver;
    [[maybe_unused]] static const bool ready = (receiver.reset(), true);
    const QByteArray data(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    check(receiver, data, true);
    check(receiver, data, false);
    return 0;
}
