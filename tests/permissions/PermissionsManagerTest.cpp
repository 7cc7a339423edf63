#include "permissions/PermissionsManager.h"

#include "tests/support/TestPlatform.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <optional>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

const QString key = PermissionsManager::grantAttemptsKey;

struct Permissions : testing::Test {
    TestPlatform world;
    std::optional<PermissionsManager> manager{std::in_place};

    QStringList journal() { return world.settings.takeJournal(); }
    /// A tool that only ends, in the place of the one that resets.
    void installTool(int status) {
        const QString path = world.bundle.pathForAuxiliaryExecutable(u"tccutil"_s);
        QDir().mkpath(QFileInfo(path).path());
        QFile tool(path);
        ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n[ \"$*\" = \"reset All org.brimlow.Brimlow\" ] && exit "
                   + QByteArray::number(status) + "\nexit 99\n");
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

TEST_F(Permissions, AreCheckedAtTheStartAndEveryTwoSeconds) {
    manager->startPolling();
    EXPECT_EQ(world.log.take(Stream::output),
              (QStringList{u"PermissionsManager: Accessibility changed to true"_s,
                           u"PermissionsManager: Screen Recording changed to true"_s}));
    world.time.advance(1.5);
    manager->startPolling();
    world.session.setReadsTitles(false);
    world.time.advance(1.999); // the first timer would have fired
    EXPECT_EQ(world.log.take(), QStringList());
    world.time.advance(0.001);
    EXPECT_EQ(world.log.take(),
              QStringList(u"PermissionsManager: Screen Recording changed to false"_s));
    EXPECT_EQ(journal(), QStringList());
    manager.reset();
    world.session.setReadsTitles(true);
    world.time.advance(2);
    EXPECT_EQ(world.log.take(), QStringList());
}

TEST_F(Permissions, ArePromptedForOnceInARun) {
    world.session.setTrusted(false);
    const QString refused = u"PermissionsManager: AppleEvents request: System Events got an error: "
                            u"the simulated world does not trust us."_s;
    manager->requestAccessibility();
    manager->requestScreenRecording();
    EXPECT_EQ(world.log.take(Stream::output),
              (QStringList{u"PermissionsManager: AXIsProcessTrustedWithOptions → false"_s,
                           u"PermissionsManager: CGRequestScreenCaptureAccess → false"_s}));
    manager->requestAppleEvents();
    EXPECT_EQ(world.log.take(Stream::error), QStringList(refused));
    EXPECT_TRUE(manager->hasPromptedAccessibility && manager->hasPromptedScreenRecording
                && manager->hasPromptedAppleEvents);
    EXPECT_EQ(journal(), (QStringList{u"prompt accessibility"_s, u"prompt screen recording"_s,
                                      u"prompt automation"_s}));

    manager->requestAccessibility();
    manager->requestAppleEvents();
    EXPECT_EQ(world.log.take(), QStringList());
    world.session.setTrusted(true);
    world.time.advance(0.499);
    EXPECT_FALSE(manager->screenRecordingGranted) << "the request's own answer is not kept";
    world.time.advance(0.001);
    EXPECT_TRUE(manager->screenRecordingGranted);
    world.session.setTrusted(false);
    manager->requestScreenRecording();
    EXPECT_FALSE(manager->screenRecordingGranted);
    EXPECT_EQ(world.time.pending(), 0U);
    EXPECT_EQ(journal(), QStringList());
}

TEST_F(Permissions, ARequestOutlivesNobody) {
    manager->requestScreenRecording();
    manager.reset();
    world.time.advance(1);
    EXPECT_EQ(world.time.pending(), 0U);
}

TEST_F(Permissions, ThreePressesInTenMinutesMeanThatItIsStuck) {
    manager->recordGrantAttempt();
    world.time.advance(300.25);
    manager->recordGrantAttempt();
    EXPECT_FALSE(manager->hasStuckPermissionState());
    world.time.advance(299.75);
    manager->recordGrantAttempt();
    const double start = VirtualTime::startSeconds;
    EXPECT_EQ(world.defaults.arrayForKey(key), (QJsonArray{start, start + 300.25, start + 600}));
    EXPECT_TRUE(manager->hasStuckPermissionState()) << "the first is exactly ten minutes old";
    manager->accessibilityGranted = true;
    EXPECT_FALSE(manager->hasStuckPermissionState());
    manager->accessibilityGranted = false;
    world.time.advance(0.001);
    EXPECT_FALSE(manager->hasStuckPermissionState());
    manager->recordGrantAttempt();
    EXPECT_EQ(world.defaults.arrayForKey(key)->size(), 3) << "the oldest is forgotten";
}

TEST_F(Permissions, ALogThatIsNoneIsEmpty) {
    const double now = VirtualTime::startSeconds;
    for (const QJsonArray& damaged :
         {QJsonArray{now, now, now, u"now"_s}, QJsonArray{now, now, now, true}}) {
        world.defaults.setArray(damaged, key);
        EXPECT_FALSE(manager->hasStuckPermissionState());
        manager->recordGrantAttempt();
        EXPECT_EQ(world.defaults.arrayForKey(key), QJsonArray{now});
        EXPECT_EQ(world.log.take(Stream::error).size(), 1) << "what was there is told and kept";
    }
}

TEST_F(Permissions, ResetForgetsOnlyWhenTheToolSucceeds) {
    world.session.setTrusted(false);
    manager->requestAccessibility();
    manager->recordGrantAttempt();
    world.log.take();
    for (const bool hasTool : {false, true}) {
        if (hasTool)
            installTool(1);
        EXPECT_FALSE(manager->resetAllTCCForSelf());
        EXPECT_TRUE(manager->hasPromptedAccessibility && world.defaults.arrayForKey(key));
        EXPECT_EQ(
            world.log.take().join(u'\n').startsWith(u"PermissionsManager: tccutil failed: "_s),
            !hasTool);
    }
    installTool(0);
    EXPECT_TRUE(manager->resetAllTCCForSelf());
    EXPECT_FALSE(manager->hasPromptedAccessibility || world.defaults.arrayForKey(key));
    journal();
    manager->requestAccessibility();
    EXPECT_EQ(journal(), QStringList(u"prompt accessibility"_s));
    world.bundle = NSBundle({}, {}, world.folder.filePath(u"libexec"_s));
    EXPECT_TRUE(manager->resetAllTCCForSelf()) << "without an identifier of its own";
}

} // namespace
} // namespace brimlow::test
