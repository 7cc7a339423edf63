#include "platform/RegularFile.h"
#include "tests/profiles/PreferencesOnDisk.h"

#include <unistd.h>

#include <cerrno>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

using platform::NSUserDefaults;
using Fault = std::function<int(const FileCall&)>;

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

TEST(FailedSave, ADiskThatCannotSynchroniseIsToldOnceAndItsFailuresAsWell) {
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

TEST(FailedSave, WhatCannotBeReadIsNeverWritten) {
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

TEST(FailedSave, AFolderThatIsRemovedIsMadeAgain) {
    World world({.name = "later", .saved = true});
    fs::remove_all(world.root);
    saveProfile(*world.defaults, u"new"_s);
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_EQ(profileFound(world.root), u"new"_s);
}

TEST(FailedSave, AFolderThatCannotBeWrittenToIsTriedAgain) {
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
