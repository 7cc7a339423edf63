// The built program, started on a machine that lacks something: one clear line, and it keeps
// running.

#include "tools/desktop/BrimlowProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using desktop::BrimlowProgram;

struct BadInput : testing::Test {
    QTemporaryDir home;
    QProcessEnvironment environment;

    BadInput() {
        environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
        environment.insert(u"HOME"_s, home.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, home.path());
        environment.insert(u"XDG_RUNTIME_DIR"_s, home.path()); // there may be one at a time
        QDir(home.path()).mkdir(u"brimlow"_s);
    }

    void write(const QString& name, const QByteArray& contents) {
        QFile file(home.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
    }

    /// Starts the program, waits until it is up and checks that the line came once, whole.
    void expectOneLine(const QString& line) {
        BrimlowProgram program(environment);
        ASSERT_EQ(program.start(), QString());
        EXPECT_FALSE(program.waitForLine(u"AppCoordinator: tap detection ENABLED"_s).isNull());
        program.readFor(150);
        EXPECT_EQ(program.lines().filter(line).size(), 1)
            << line.toStdString() << " in:\n"
            << program.lines().join(u'\n').toStdString();
        EXPECT_GT(program.pid(), 0) << "still runs";
    }
};

TEST_F(BadInput, NoDesktop) {
    const QString refusal = u"Brimlow: Windows and workspaces cannot be controlled: "_s;
    expectOneLine(refusal + u"there is no X server: DISPLAY is not set."_s);
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
    expectOneLine(refusal + u"Wayland desktops are not supported yet."_s);
}

TEST_F(BadInput, DamagedPreferences) {
    write(u"brimlow/preferences.json"_s, "{\"tapEnabled\": tr");
    expectOneLine(u"preferences.json is damaged; moved to "_s);
}

TEST_F(BadInput, PreferencesThatAreNoFile) {
    QDir(home.path()).mkdir(u"brimlow/preferences.json"_s);
    expectOneLine(u"NSUserDefaults: cannot read "_s);
}

TEST_F(BadInput, NoInputSubsystem) {
    if (QDir(u"/dev/input"_s).exists())
        GTEST_SKIP() << "this machine has one";
    expectOneLine(u"MultitouchManager: no multitouch device available"_s);
}

TEST_F(BadInput, MalformedRecording) {
    write(u"pad.evemu"_s, "# EVEMU 1.3\nN: Pad\nE: soon 0003 0000 0\n");
    environment.insert(u"BRIMLOW_TOUCH_DEVICE"_s, home.filePath(u"pad.evemu"_s));
    expectOneLine(u"Brimlow: "_s + home.filePath(u"pad.evemu"_s) + u":3: "_s);
    environment.insert(u"BRIMLOW_TOUCH_DEVICE"_s, home.filePath(u"nowhere.evemu"_s));
    expectOneLine(u"Brimlow: "_s + home.filePath(u"nowhere.evemu"_s));
}

TEST_F(BadInput, FrameworkImage) {
    environment.insert(u"BRIMLOW_FRAMEWORKS"_s, home.path());
    expectOneLine(u"MultitouchManager: dlopen(/System/Library/PrivateFrameworks/"
                  u"MultitouchSupport.framework/MultitouchSupport) failed: "_s);
}

} // namespace
} // namespace brimlow::test
