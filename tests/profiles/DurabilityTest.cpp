// What is left of the preferences on a disk that fails, after a power cut, and after a kill.

#include "platform/RegularFile.h"
#include "tests/profiles/FailingDisk.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
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
    bool saved;  // or there is no file, and no folder either
    bool linked; // the file is a symbolic link, which may dangle
};

constexpr Start starts[] = {{false, false}, {true, false}, {false, true}, {true, true}};

std::string nameOf(const Start& start) {
    return std::string(start.saved ? "saved before" : "first") + (start.linked ? ", linked" : "");
}

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
        defaults.emplace(path, log, &time);
    }

    QTemporaryDir folder;
    platform::VirtualTime time;
    CapturedLog log;
    fs::path root = folder.filePath(u"disk"_s).toStdString();
    QString path = preferencesIn(root);
    std::optional<NSUserDefaults> defaults;
};

/// What the next start finds. Anything amiss fails the test.
QString found(const fs::path& root) {
    CapturedLog log;
    NSUserDefaults defaults(preferencesIn(root), log);
    defaults.setBool(true, u"again"_s);
    EXPECT_EQ(log.take(), QStringList());
    for (const auto& [path, bytes] : filesBelow(root))
        EXPECT_EQ(path.extension(), ".json"); // neither damaged nor left behind
    EXPECT_EQ(fs::is_symlink(root / "brimlow/preferences.json"), fs::exists(root / "elsewhere"));
    return defaults.stringForKey(key).value_or(u"nothing"_s);
}

void save(World& world, const Fault& fault) {
    FailingDisk disk(world.root);
    disk.before = fault;
    world.defaults->setString(u"new"_s, key);
}

/// Whether the save is done though `call` fails: what comes after the new name, and closing a file
/// that is synchronised.
bool goesOnWithout(const FileCall& call) {
    const bool ofFolder =
        fs::is_directory(call.path) && (call.name == "open" || call.name == "fsync");
    return ofFolder || call.name == "close";
}

using Chance = std::function<void(World&)>;

const Chance chances[] = {
    [](World& world) { world.defaults->setBool(true, u"other"_s); },
    [](World& world) { world.time.advance(60); },
    [](World& world) { world.defaults.reset(); }, // the end
};

/// Whether anything failed at all.
bool checkFailure(const Start& start, const Chance& chance, const Fault& fault) {
    World world(start);
    const auto before = filesBelow(world.root);
    std::vector<FileCall> failed;
    save(world, [&](const FileCall& call) {
        const int error = fault(call);
        if (error > 0)
            failed.push_back(call);
        return error;
    });
    SCOPED_TRACE(failed.empty() ? "no call" : failed[0].name + ' ' + failed[0].path.string());
    const bool done = std::ranges::all_of(failed, goesOnWithout);
    EXPECT_EQ(world.log.take().join(u'\n').contains(u"cannot write"_s), !done);
    EXPECT_EQ(world.defaults->stringForKey(key), u"new"_s);
    if (!done) {
        EXPECT_EQ(filesBelow(world.root), before);
        chance(world);
    }
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_EQ(found(world.root), u"new"_s);
    return !failed.empty();
}

Fault failing(int number, int error) {
    return [=, count = 0](const FileCall&) mutable { return count++ == number ? error : 0; };
}

void checkPowerCuts(const Start& start) {
    SCOPED_TRACE(nameOf(start));
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

/// Counts up, and tells each number once it is saved.
[[noreturn]] void saveUntilKilled(NSUserDefaults& defaults, std::atomic<int>& saved) {
    for (;;) {
        defaults.setString(QString::number(saved + 1), key);
        ++saved;
    }
}

} // namespace

TEST(FailedSave, AFailingCallIsToldAndMadeUpForAtTheNextChance) {
    for (const Start& start : starts) {
        for (const Chance& chance : chances) {
            for (const int error : {ENOSPC, EIO, EROFS, EDQUOT, EACCES}) {
                SCOPED_TRACE(nameOf(start) + ", chance " + std::to_string(&chance - chances) + ", "
                             + std::to_string(error));
                int number = 0;
                while (checkFailure(start, chance, failing(number, error)))
                    ++number;
                EXPECT_GT(number, 5);
            }
        }
    }
}

TEST(FailedSave, AShortWriteGoesOn) {
    for (const int second : {0, ENOSPC}) {
        checkFailure({.saved = true, .linked = false}, chances[1],
                     [second, count = 0](const FileCall& call) mutable {
                         if (call.name != "write" || count == 2)
                             return 0;
                         return ++count == 1 ? FailingDisk::halfWritten : second;
                     });
    }
}

TEST(FailedSave, ADiskThatCannotSynchroniseIsToldOnceAndItsFailuresAsWell) {
    for (const int error : {EINVAL, ENOSYS, ENOTSUP}) {
        World world({.saved = true, .linked = false});
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
        World world({.saved = true, .linked = false});
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
    World world({.saved = true, .linked = false});
    fs::remove_all(world.root);
    world.defaults->setString(u"new"_s, key);
    EXPECT_EQ(found(world.root), u"new"_s);
}

TEST(PowerCut, LeavesTheOldOrTheNewContentsAndAfterTheSaveTheNew) {
    for (const Start& start : starts)
        checkPowerCuts(start);
}

TEST(Kill, LeavesAWholeFileNoOlderThanTheLastSave) {
    World world({.saved = false, .linked = false});
    std::mt19937 random(20260102);
    std::uniform_int_distribution<int> microseconds(0, 5'000);
    void* shared = mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& saved = *new (shared) std::atomic<int>(0);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const int before = saved;
        const pid_t child = fork();
        if (child == 0)
            saveUntilKilled(*world.defaults, saved);
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
