// What is left of the preferences on a disk that fails, after a power cut, and after a kill.

#include "platform/RegularFile.h"
#include "tests/profiles/FailingDisk.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <random>
#include <set>
#include <thread>

namespace brimlow::test {

using namespace Qt::StringLiterals;

namespace {

using platform::NSUserDefaults;
using Fault = std::function<int(const FileCall&)>;

const QString key = u"text"_s;

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

QString preferencesIn(const fs::path& root) {
    return QString::fromStdString((root / "brimlow/preferences.json").string());
}

/// Preferences that hold "old" or nothing, on a disk of their own.
struct World {
    explicit World(const Start& start) {
        fs::create_directories(root);
        if (start.linked) {
            fs::create_directory(root / "brimlow");
            fs::create_symlink("../elsewhere/real.json", root / "brimlow/preferences.json");
        }
        if (start.saved)
            NSUserDefaults(path, log).setString(u"old"_s, key);
        const fs::path target = root / (start.linked ? "elsewhere/.real" : "brimlow/.preferences");
        if (start.leftOver) {
            fs::create_directories(target.parent_path());
            std::ofstream(target.string() + ".json.brimlow-new") << R"({"half":)";
        }
        defaults.emplace(path, log, &time);
    }

    QTemporaryDir folder;
    platform::VirtualTime time;
    CapturedLog log;
    fs::path root = folder.filePath(u"disk"_s).toStdString();
    QString path = preferencesIn(root);
    std::optional<NSUserDefaults> defaults;
};

std::map<std::string, std::string> filesBelow(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& each : fs::recursive_directory_iterator(root)) {
        std::ifstream file(each.path());
        if (!each.is_directory())
            files[each.path()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return files;
}

/// What the next start finds. Anything amiss fails the test.
QString found(const fs::path& root) {
    CapturedLog log;
    NSUserDefaults defaults(preferencesIn(root), log);
    defaults.setBool(true, u"again"_s);
    EXPECT_EQ(log.take(), QStringList());
    for (const auto& [path, bytes] : filesBelow(root))
        EXPECT_EQ(fs::path(path).extension(), ".json"); // neither damaged nor left behind
    EXPECT_EQ(fs::is_symlink(root / "brimlow/preferences.json"), fs::exists(root / "elsewhere"));
    return defaults.stringForKey(key).value_or(u"nothing"_s);
}

/// The calls of saving "new", with `fault` in them.
std::vector<FileCall> save(World& world, const Fault& fault) {
    std::vector<FileCall> calls;
    FailingDisk disk(world.root);
    disk.before = [&](const FileCall& call) {
        calls.push_back(call);
        return fault(call);
    };
    world.defaults->setString(u"new"_s, key);
    return calls;
}

/// Whether the save is done though `call` fails: what comes after the new name, and closing a file
/// that is synchronised.
bool goesOnWithout(const FileCall& call) {
    const bool ofFolder =
        fs::is_directory(call.path) && (call.name == "open" || call.name == "fsync");
    return ofFolder || call.name == "close";
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
    bool done = true;
    save(world, [&](const FileCall& call) {
        const int error = fault(call);
        done = done && (error <= 0 || goesOnWithout(call));
        return error;
    });
    EXPECT_EQ(world.log.take().join(u'\n').contains(u"cannot write"_s), !done);
    EXPECT_EQ(world.defaults->stringForKey(key), u"new"_s);
    if (!done) {
        EXPECT_EQ(filesBelow(world.root), before);
        takeChance(world, chance);
    }
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_EQ(found(world.root), u"new"_s);
}

void checkFailuresOfEachCall(const Start& start, const char* chance, int error) {
    const auto calls = save(*std::make_unique<World>(start), [](const FileCall&) { return 0; });
    EXPECT_GT(calls.size(), 5U);
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        SCOPED_TRACE(calls[failing].name + " " + calls[failing].path.filename().string());
        checkFailure(start, chance, [failing, error, count = 0U](const FileCall&) mutable {
            return count++ == failing ? error : 0;
        });
    }
}

void checkPowerCuts(const Start& start) {
    SCOPED_TRACE(std::string(start.name) + (start.leftOver ? " after a crash" : ""));
    World world(start);
    const fs::path after = world.root.string() + "-after";
    FailingDisk disk(world.root);
    std::set<QString> contents;
    const auto cutPower = [&] {
        disk.forEachPowerCut(after, [&] { contents.insert(found(after)); });
    };
    disk.before = [&](const FileCall&) {
        cutPower();
        return 0;
    };
    world.defaults->setString(u"new"_s, key);
    EXPECT_EQ(contents, (std::set{start.saved ? u"old"_s : u"nothing"_s, u"new"_s}));
    contents.clear();
    cutPower();
    EXPECT_EQ(contents, std::set{u"new"_s});
}

} // namespace

TEST(FailedSave, AFailingCallIsToldAndMadeUpForAtTheNextChance) {
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

TEST(FailedSave, AShortWriteGoesOn) {
    for (const int second : {0, ENOSPC}) {
        checkFailure({.name = "later", .saved = true}, "time",
                     [second, count = 0](const FileCall& call) mutable {
                         if (call.name != "write" || count == 2)
                             return 0;
                         return ++count == 1 ? FailingDisk::halfWritten : second;
                     });
    }
}

TEST(FailedSave, ADiskThatCannotSynchroniseIsToldOnceAndItsFailuresAsWell) {
    for (const int error : {EINVAL, ENOSYS, ENOTSUP}) {
        World world({.name = "later", .saved = true});
        const auto cannot = [&](const FileCall& call) { return call.name == "fsync" ? error : 0; };
        const auto full = [&](const FileCall& call) {
            return call.name == "write" ? ENOSPC : cannot(call);
        };
        for (const Fault& fault : {Fault(cannot), Fault(cannot), Fault(full), Fault(full),
                                   Fault(cannot), Fault(full), Fault(cannot)})
            save(world, fault);
        const QString insecure =
            u"NSUserDefaults: wrote %1, but it cannot be secured against a power cut: %2"_s;
        const QString unwritten =
            u"NSUserDefaults: cannot write %1: No space left on device"_s.arg(world.path);
        EXPECT_EQ(world.log.take(),
                  (QStringList{insecure.arg(world.path, platform::messageOf(error)), unwritten,
                               unwritten}));
        EXPECT_EQ(found(world.root), u"new"_s);
    }
}

TEST(FailedSave, WhatCannotBeReadIsNeverWritten) {
    for (const char* name : {"open", "read"}) {
        World world({.name = "later", .saved = true});
        const auto before = filesBelow(world.root);
        FailingDisk disk(world.root);
        disk.before = [&](const FileCall& call) { return call.name == name ? EIO : 0; };
        NSUserDefaults defaults(world.path, world.log);
        disk.before = [](const FileCall&) { return 0; };
        defaults.setBool(true, u"other"_s);
        EXPECT_EQ(defaults.boolForKey(u"other"_s), true);
        EXPECT_EQ(world.log.take(),
                  QStringList(u"NSUserDefaults: cannot read %1: Input/output error; nothing is "
                              "saved until the next start"_s.arg(world.path)));
        EXPECT_EQ(filesBelow(world.root), before);
    }
}

TEST(FailedSave, AFolderThatIsRemovedIsMadeAgain) {
    World world({.name = "later", .saved = true});
    fs::remove_all(world.root);
    world.defaults->setString(u"new"_s, key);
    EXPECT_EQ(found(world.root), u"new"_s);
}

TEST(PowerCut, LeavesTheOldOrTheNewContentsAndAfterTheSaveTheNew) {
    for (Start start : starts) {
        checkPowerCuts(start);
        start.leftOver = true;
        checkPowerCuts(start);
    }
}

TEST(Kill, LeavesAWholeFileNoOlderThanTheLastSave) {
    World world({.name = "first"});
    std::mt19937 random(20260102);
    std::uniform_int_distribution<int> microseconds(0, 5'000);
    void* shared = mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& saved = *new (shared) std::atomic<int>(0);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const int before = saved;
        const pid_t child = fork();
        while (child == 0) {
            world.defaults->setString(QString::number(saved + 1), key);
            ++saved;
        }
        while (saved == before && waitpid(child, nullptr, WNOHANG) == 0)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_GT(saved, before);
        const int number = found(world.root).toInt();
        ASSERT_TRUE(number == saved || number == saved + 1);
    }
}

} // namespace brimlow::test
