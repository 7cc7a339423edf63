// The input is a preferences.json that somebody, or a failing disk, has been at.

#include "engine/AppSettings.h"
#include "fuzz/Require.h"
#include "platform/JsonText.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

namespace brimlow::fuzz {

using namespace Qt::StringLiterals;

namespace {

const QString profilesKey = TapPositionMappings::profilesKey.toString();
const QString activeKey = TapPositionMappings::activeKey.toString();

/// One start of the program.
struct Run {
    Run(test::TestPlatform& world, const QString& path)
        : defaults(path, world.log),
          platform(world.services(defaults, world.applications, world.applications)) {}

    platform::NSUserDefaults defaults;
    platform::Platform platform;
    AppSettings settings;
    TapPositionMappings store{10, defaults};
};

struct State {
    explicit State(const Run& run)
        : profiles(run.store.profiles.get()),
          active(run.store.activeProfileId), switches{run.settings.tapEnabled(),
                                                      run.settings.palmRejection(),
                                                      run.settings.hasCompletedOnboarding()},
          maxAxis(run.settings.palmRejectionMaxAxis()) {}

    std::vector<TapProfile> profiles;
    QUuid active;
    std::array<bool, 3> switches;
    double maxAxis;

    bool operator==(const State&) const = default;
};

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject parsed(const QByteArray& bytes) {
    return platform::parsedJson(bytes).object();
}

QJsonObject withoutOurs(QJsonObject values) {
    values.remove(profilesKey);
    values.remove(activeKey);
    return values;
}

/// Emptied for each input: by unlink, since QDir would take most of an execution's time.
class Scratch {
public:
    explicit Scratch(const QString& folder) : folder_(folder) {}

    void clear() const {
        for (const QByteArray& name : names())
            ::unlink(QFile::encodeName(at(name)).constData());
    }
    QString at(const QByteArray& name) const { return folder_ + u'/' + QFile::decodeName(name); }
    /// The contents of the one file that begins so; none where there is none.
    std::optional<QByteArray> kept(const QByteArray& prefix) const {
        for (const QByteArray& name : names())
            if (name.startsWith(prefix))
                return contents(at(name));
        return std::nullopt;
    }

private:
    std::vector<QByteArray> names() const {
        std::vector<QByteArray> result;
        DIR* folder = ::opendir(QFile::encodeName(folder_).constData());
        require(folder != nullptr, "the scratch folder can be listed");
        while (const dirent* entry = ::readdir(folder))
            if (entry->d_name != "."_ba && entry->d_name != ".."_ba)
                result.emplace_back(entry->d_name);
        ::closedir(folder);
        return result;
    }

    QString folder_;
};

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
                && file.write(bytes) == bytes.size(),
            "the input can be written");
}

void checkStore(const Run& run) {
    require(!run.store.profiles->empty(), "there is a profile");
    require(run.store.activeProfile() != nullptr, "there is an active profile");
}

/// Nothing that the user had is gone, once `after` is the file.
void checkKept(const QByteArray& before, const QByteArray& after, const Scratch& scratch) {
    if (!platform::parsedJson(before).isObject()) {
        require(scratch.kept("preferences.json.damaged-") == before, "a damaged file is kept");
        return;
    }
    const QJsonObject old = parsed(before);
    const QJsonValue value = old.value(profilesKey);
    if (value.isUndefined() || value == parsed(after).value(profilesKey))
        return;
    const auto data = QByteArray::fromBase64(value[u"data"_s].toString().toUtf8());
    if (platform::parsedJson(data) == QJsonDocument(QJsonArray()))
        return; // no profile to lose
    const auto kept = scratch.kept("preferences.json.tapProfiles.v1.damaged-");
    require(kept && (kept == data || parsed(*kept).value(profilesKey) == value),
            "replaced profiles are kept");
}

void check(test::TestPlatform& world, const Scratch& scratch, const QByteArray& before) {
    const QString path = scratch.at("preferences.json");
    scratch.clear();
    write(path, before);
    std::optional<State> state;
    {
        const Run first(world, path);
        checkStore(first);
        state.emplace(first);
    }
    const QByteArray after = contents(path);
    checkKept(before, after, scratch);
    {
        Run second(world, path);
        require(State(second) == state, "a second start finds what the first one had");
        require(contents(path) == after, "a second start writes nothing");
        second.store.renameProfile(second.store.activeProfileId, u"Renamed"_s);
        require(second.store.activeProfile()->name == u"Renamed"_s, "a profile takes a name");
        state.emplace(second);
    }
    const Run third(world, path);
    require(State(third) == state, "a save comes back");
    require(withoutOurs(parsed(contents(path))) == withoutOurs(parsed(before)),
            "unknown keys survive");
    world.log.take();
}

} // namespace

} // namespace brimlow::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static brimlow::test::TestPlatform world;
    static const QTemporaryDir folder;
    static const brimlow::fuzz::Scratch scratch(folder.path());
    check(world, scratch,
          QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size)));
    return 0;
}
