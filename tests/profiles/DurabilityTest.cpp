#include "platform/RegularFile.h"
#include "profiles/DefaultLayout.h"
#include "profiles/JsonWriter.h"
#include "profiles/TapPositionMappings.h"
#include "tests/profiles/FailingDisk.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <set>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::NSUserDefaults;
using test::FailingDisk;
using test::FileCall;
namespace fs = std::filesystem;

namespace {

using Fault = std::function<int(const FileCall&)>;

struct Start {
    const char* name;
    bool saved = false;    // or there is no file, and no folder either
    bool linked = false;   // the file is a symbolic link
    bool leftOver = false; // a crash has left half a new file behind
};

constexpr Start starts[] = {
    {.name = "first"},
    {.name = "later", .saved = true},
    {.name = "dangling link", .linked = true},
    {.name = "link", .saved = true, .linked = true},
};
constexpr Start startsAfterCrash[] = {
    {.name = "first after a crash", .leftOver = true},
    {.name = "later after a crash", .saved = true, .leftOver = true},
    {.name = "link after a crash", .saved = true, .linked = true, .leftOver = true},
};

QString preferencesIn(const fs::path& root) {
    return QString::fromStdString((root / "brimlow/preferences.json").string());
}

void saveProfile(NSUserDefaults& defaults, const QString& name) {
    const TapProfile profile{QUuid::createUuid(), name, buildDefaultLayout(10)};
    json::Writer writer(json::DateStrategy::secondsSince2001);
    writer.value(std::vector{profile});
    defaults.setData(writer.bytes().value(), TapPositionMappings::profilesKey.toString());
}

std::map<std::string, std::string> filesBelow(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& each : fs::recursive_directory_iterator(root)) {
        std::ifstream file(each.path());
        if (!each.is_directory())
            files[each.path()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return files;
}

/// What the next start finds, "Default" being nothing. Anything amiss fails the test.
QString profileFound(const fs::path& root) {
    test::CapturedLog log;
    NSUserDefaults defaults(preferencesIn(root), log);
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
            saveProfile(*std::make_unique<NSUserDefaults>(path, log), u"old"_s);
        const fs::path target = root / (start.linked ? "elsewhere" : "brimlow");
        if (start.leftOver) {
            fs::create_directories(target);
            const char* name = start.linked ? ".real.json" : ".preferences.json";
            std::ofstream(target / (std::string(name) + ".brimlow-new")) << R"({"half":)";
        }
        defaults = std::make_unique<NSUserDefaults>(path, log, &time);
    }

    test::TestPlatform platform;
    platform::VirtualTime& time = platform.time;
    test::CapturedLog& log = platform.log;
    fs::path root = platform.folder.filePath(u"disk"_s).toStdString();
    fs::path scratch = platform.folder.filePath(u"after"_s).toStdString();
    QString path = preferencesIn(root);
    std::unique_ptr<NSUserDefaults> defaults;
};

/// The calls of saving "new", with `fault` in them.
std::vector<FileCall> save(World& world, const Fault& fault) {
    std::vector<FileCall> calls;
    FailingDisk disk(world.root);
    disk.before = [&](const FileCall& call) {
        calls.push_back(call);
        return fault(call);
    };
    saveProfile(*world.defaults, u"new"_s);
    return calls;
}

void checkPowerCuts(const Start& start) {
    SCOPED_TRACE(start.name);
    World world(start);
    FailingDisk disk(world.root);
    std::set<QString> found;
    const auto cutPower = [&] {
        disk.forEachPowerCut(world.scratch, [&] { found.insert(profileFound(world.scratch)); });
    };
    disk.before = [&](const FileCall&) {
        cutPower();
        return 0;
    };
    saveProfile(*world.defaults, u"new"_s);
    EXPECT_EQ(found, (std::set{start.saved ? u"old"_s : u"Default"_s, u"new"_s}));
    found.clear();
    cutPower();
    EXPECT_EQ(found, std::set{u"new"_s});
}

/// What the log says where `call` fails; a file that is written and synchronised may fail to close.
QString expectedLine(const World& world, const FileCall& call, int error) {
    if (call.name == "close")
        return {};
    const bool folder =
        fs::is_directory(call.path) && (call.name == "open" || call.name == "fsync");
    const QString line = folder ? u"wrote %1, but it cannot be secured against a power cut: %2"_s
                                : u"cannot write %1: %2"_s;
    return u"NSUserDefaults: "_s + line.arg(world.path, platform::messageOf(error));
}

constexpr const char* chances[] = {"assignment", "time", "end"};

void takeChance(World& world, std::string_view chance) {
    if (chance == "assignment")
        world.defaults->setBool(true, u"other"_s);
    else if (chance == "time")
        world.time.advance(60);
    else
        world.defaults.reset();
}

void checkFailure(const Start& start, const char* chance, const Fault& fault) {
    World world(start);
    const auto before = filesBelow(world.root);
    QStringList lines;
    save(world, [&](const FileCall& call) {
        const int error = fault(call);
        if (error > 0 && lines.isEmpty())
            lines << expectedLine(world, call, error);
        return error;
    });
    ASSERT_EQ(lines.size(), 1);
    lines.removeAll(QString());
    EXPECT_EQ(world.log.take(), lines);
    EXPECT_TRUE(world.defaults->dataForKey(TapPositionMappings::profilesKey.toString()));
    if (!lines.isEmpty() && lines[0].contains(u"cannot write"_s)) {
        EXPECT_EQ(filesBelow(world.root), before);
        takeChance(world, chance);
    }
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_EQ(profileFound(world.root), u"new"_s);
}

void checkFailuresOfEachCall(const Start& start, const char* chance, int error) {
    const auto calls = save(*std::make_unique<World>(start), [](const FileCall&) { return 0; });
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        SCOPED_TRACE(calls[failing].name + " " + calls[failing].path.filename().string());
        checkFailure(start, chance, [failing, error, count = 0U](const FileCall&) mutable {
            return count++ == failing ? error : 0;
        });
    }
}

} // namespace

TEST(Durability, APowerCutLeavesTheOldOrTheNewContentsAndAfterTheSaveTheNew) {
    for (const Start& start : starts)
        checkPowerCuts(start);
    for (const Start& start : startsAfterCrash)
        checkPowerCuts(start);
}

TEST(Durability, AFailingCallIsToldAndMadeUpForAtTheNextChance) {
    for (const Start& start : starts) {
        for (const char* chance : chances) {
            for (const int error : {ENOSPC, EIO, EROFS, EDQUOT, EACCES}) {
                SCOPED_TRACE(std::string(start.name) + ", " + chance + ", "
                             + platform::messageOf(error).toStdString());
                checkFailuresOfEachCall(start, chance, error);
            }
        }
    }
}

TEST(Durability, AShortWriteGoesOn) {
    const auto write = [](int second) {
        return [second, count = 0](const FileCall& call) mutable {
            if (call.name != "write" || count == 2)
                return 0;
            return ++count == 1 ? FailingDisk::halfWritten : second;
        };
    };
    for (const Start& start : starts) {
        checkFailure(start, "time", write(ENOSPC));
        World world(start);
        save(world, write(0));
        EXPECT_EQ(world.log.take(), QStringList());
        EXPECT_EQ(profileFound(world.root), u"new"_s);
    }
}

TEST(Durability, ADiskThatCannotSynchroniseIsToldOnceAndItsFailuresAsWell) {
    for (const int error : {EINVAL, ENOSYS, ENOTSUP}) {
        World world({.name = "later", .saved = true});
        const auto cannot = [&](const FileCall& call) { return call.name == "fsync" ? error : 0; };
        const auto full = [&](const FileCall& call) {
            return call.name == "write" ? ENOSPC : cannot(call);
        };
        QStringList told{
            expectedLine(world, {.name = "fsync", .path = world.root}, error),
            expectedLine(world, {.name = "write", .path = "file"}, ENOSPC),
            expectedLine(world, {.name = "write", .path = "file"}, ENOSPC),
        };
        for (const Fault& fault : {Fault(cannot), Fault(cannot), Fault(full), Fault(full),
                                   Fault(cannot), Fault(full), Fault(cannot)})
            save(world, fault);
        EXPECT_EQ(world.log.take(), told);
        EXPECT_EQ(profileFound(world.root), u"new"_s);
    }
}

TEST(Durability, WhatCannotBeReadIsNeverWritten) {
    for (const char* name : {"open", "read"}) {
        World world({.name = "later", .saved = true});
        const auto before = filesBelow(world.root);
        FailingDisk disk(world.root);
        disk.before = [&](const FileCall& call) { return call.name == name ? EIO : 0; };
        NSUserDefaults defaults(world.path, world.log);
        disk.before = [](const FileCall&) { return 0; };
        defaults.setBool(true, u"other"_s);
        EXPECT_EQ(world.log.take(),
                  QStringList(u"NSUserDefaults: cannot read %1: Input/output error; nothing is "
                              "saved until the next start"_s.arg(world.path)));
        EXPECT_EQ(filesBelow(world.root), before);
    }
}

TEST(Durability, AFolderThatIsRemovedIsMadeAgain) {
    World world({.name = "later", .saved = true});
    fs::remove_all(world.root);
    saveProfile(*world.defaults, u"new"_s);
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_EQ(profileFound(world.root), u"new"_s);
}

TEST(Durability, AFolderThatCannotBeWrittenToIsTriedAgain) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    World world({.name = "later", .saved = true});
    const auto before = filesBelow(world.root);
    fs::permissions(world.root / "brimlow", fs::perms(0500));
    saveProfile(*world.defaults, u"new"_s);
    EXPECT_EQ(world.log.take(),
              QStringList(u"NSUserDefaults: cannot write %1: Permission denied"_s.arg(world.path)));
    EXPECT_EQ(filesBelow(world.root), before);
    fs::permissions(world.root / "brimlow", fs::perms(0700));
    world.time.advance(60);
    EXPECT_EQ(profileFound(world.root), u"new"_s);
}

} // namespace brimlow
