#include "ui/tap/ProfileImport.h"

#include "platform/RegularFile.h"
#include "profiles/ProfileJSONDocument.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

const QString unread = u"Couldn't read that file."_s;
const QString unreadable = u"This file couldn't be read as a Brimlow profile."_s;

class ProfileFiles : public testing::Test {
protected:
    QString inFolder(const QString& name) const { return world.folder.filePath(name); }

    /// What importing the file says, having seen that the store and its file stay as they were.
    std::optional<QString> refusal(const QString& path) {
        const auto profiles = store.profiles.get();
        const auto preferences = platform::readRegularFile(world.defaults.path()).bytes;
        const auto message = importProfileFile(store, path);
        EXPECT_EQ(store.profiles.get(), profiles);
        EXPECT_EQ(platform::readRegularFile(world.defaults.path()).bytes, preferences);
        return message;
    }

    test::TestPlatform world;
    TapPositionMappings store{10, world.defaults};
};

} // namespace

TEST_F(ProfileFiles, AFileThatWasWrittenIsImported) {
    const QString path = inFolder(u"Brimlow-ü.json"_s);
    const ProfileJSONDocument document{store.exportActiveProfileData().value()};
    EXPECT_FALSE(document.write(path));
    EXPECT_EQ(ProfileJSONDocument::read(path)->data, document.data);
    EXPECT_FALSE(importProfileFile(store, path));
    EXPECT_EQ(store.activeProfile()->name, u"Default 2"_s);
    EXPECT_EQ(document.write(inFolder(u"Brimlow-ü.json/below"_s)), u"Not a directory"_s);
}

TEST_F(ProfileFiles, WhatIsNoRegularFileIsNotRead) {
    const QString pipe = inFolder(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& path : {inFolder(u"absent"_s), world.folder.path(), pipe, u"/dev/zero"_s,
                                u"/dev/null"_s, QString()})
        EXPECT_EQ(refusal(path), unread) << path.toStdString();
}

TEST_F(ProfileFiles, AHugeFileIsRefusedWithoutReadingAllOfIt) {
    const QString path = inFolder(u"huge.json"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("[") == 1);
    ASSERT_TRUE(file.resize(200 << 20));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(refusal(path), unreadable);
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_EQ(ProfileJSONDocument::read(path)->data.size(),
              ProfileJSONDocument::largestProfile + 1);
}

TEST_F(ProfileFiles, AFileThatShrinksWhileItIsReadDoesNoHarm) {
    const QString path = inFolder(u"shrinking.json"_s);
    const QByteArray data = store.exportActiveProfileData().value() + QByteArray(8'000'000, ' ');
    std::atomic<bool> over = false;
    std::thread shrinking([&] {
        while (!over) {
            QFile file(path);
            if (file.open(QIODevice::WriteOnly))
                file.write(data);
            file.resize(data.size() / 2 - 4'000'000);
        }
    });
    for (int round = 0; round < 20; ++round) {
        const auto message = importProfileFile(store, path);
        EXPECT_TRUE(!message || message == unreadable || message == unread);
    }
    over = true;
    shrinking.join();
}

} // namespace brimlow
