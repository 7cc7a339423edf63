#pragma once

#include "profiles/DefaultLayout.h"
#include "profiles/JsonWriter.h"
#include "profiles/TapPositionMappings.h"
#include "tests/profiles/FailingDisk.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <fstream>

/// Preferences on a disk that may fail, and what the next start finds of them.
namespace brimlow::test {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

struct Start {
    const char* name;
    bool saved = false;    // or there is no file, and no folder either
    bool linked = false;   // the file is a symbolic link
    bool leftOver = false; // a crash has left half a new file behind
};

inline constexpr Start starts[] = {
    {.name = "first"},
    {.name = "later", .saved = true},
    {.name = "dangling link", .linked = true},
    {.name = "link", .saved = true, .linked = true},
};
inline QString preferencesIn(const fs::path& root) {
    return QString::fromStdString((root / "brimlow/preferences.json").string());
}

inline void saveProfile(platform::NSUserDefaults& defaults, const QString& name) {
    const TapProfile profile{QUuid::createUuid(), name, buildDefaultLayout(10)};
    json::Writer writer(json::DateStrategy::secondsSince2001);
    writer.value(std::vector{profile});
    defaults.setData(writer.bytes().value(), TapPositionMappings::profilesKey.toString());
}

inline std::map<std::string, std::string> filesBelow(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& each : fs::recursive_directory_iterator(root)) {
        std::ifstream file(each.path());
        if (!each.is_directory())
            files[each.path()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return files;
}

/// What the next start finds, "Default" being nothing. Anything amiss fails the test.
inline QString profileFound(const fs::path& root) {
    CapturedLog log;
    platform::NSUserDefaults defaults(preferencesIn(root), log);
    const TapPositionMappings store(10, defaults);
    EXPECT_EQ(store.activeProfile()->bindings.size(), 10U);
    defaults.setBool(true, u"again"_s);
    EXPECT_EQ(log.take(), QStringList());
    for (const auto& [path, bytes] : filesBelow(root))
        EXPECT_EQ(fs::path(path).extension(), ".json"); // neither damaged nor left behind
    return store.activeProfile()->name;
}

/// Preferences that hold the profile "old" or none.
class World {
public:
    explicit World(const Start& start) {
        fs::create_directories(root);
        if (start.linked) {
            fs::create_directory(root / "brimlow");
            fs::create_symlink("../elsewhere/real.json", root / "brimlow/preferences.json");
        }
        if (start.saved)
            saveProfile(*std::make_unique<platform::NSUserDefaults>(path, log), u"old"_s);
        const fs::path target = root / (start.linked ? "elsewhere" : "brimlow");
        if (start.leftOver) {
            fs::create_directories(target);
            const char* name = start.linked ? ".real.json" : ".preferences.json";
            std::ofstream(target / (std::string(name) + ".brimlow-new")) << R"({"half":)";
        }
        defaults = std::make_unique<platform::NSUserDefaults>(path, log, &time);
    }

    test::TestPlatform platform;
    platform::VirtualTime& time = platform.time;
    CapturedLog& log = platform.log;
    fs::path root = platform.folder.filePath(u"disk"_s).toStdString();
    fs::path scratch = platform.folder.filePath(u"after"_s).toStdString();
    QString path = preferencesIn(root);
    std::unique_ptr<platform::NSUserDefaults> defaults;
};

} // namespace brimlow::test
