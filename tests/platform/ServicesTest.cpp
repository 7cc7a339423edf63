#include "platform/Accessibility.h"
#include "platform/Format.h"
#include "platform/NSAppleScript.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

TEST(Fixed, RoundsAsCDoesInEveryLocale) {
    struct Row {
        double value;
        int decimals;
        const char* text;
    };
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    for (const Row& row : {Row{14.5, 0, "14"}, Row{15.5, 0, "16"}, Row{-0.0, 1, "-0.0"},
                           Row{2.675, 2, "2.67"}, Row{INFINITY, 4, "inf"}})
        EXPECT_EQ(fixed(row.value, row.decimals).toStdString(), row.text);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(AppleScript, CompilesWhatThisProgramSendsAndNothingElse) {
    const QString right =
        u"tell application \"System Events\" to key code 124 using control down"_s;
    const QString dump = dumpWindowsSource.arg(u"a"_s);
    for (const QString& sent :
         {right, focusWindowSource.arg(u""_s, u"%1 a\nb \\\\ \\\" %2"_s), consentSource, dump}) {
        EXPECT_TRUE(NSAppleScript::initWithSource(sent)) << sent.toStdString();
        EXPECT_FALSE(NSAppleScript::initWithSource(sent + u'\n')) << sent.toStdString();
    }
    const QStringList others{u""_s,
                             u' ' + right,
                             QString(right).replace(u"124"_s, u"-1"_s),
                             QString(right).replace(u"control"_s, u"command"_s),
                             right + u"\ndo shell script \"true\""_s,
                             focusWindowSource.arg(u"a"_s, u"\" & (do shell script \"x\") & \""_s),
                             focusWindowSource.arg(u"a"_s, u"a\\n"_s),
                             focusWindowSource.arg(u"a"_s, u"b\\"_s),
                             QString(dump).replace(u"set out"_s, u"set it"_s)};
    for (const QString& other : others)
        EXPECT_FALSE(NSAppleScript::initWithSource(other)) << other.toStdString();
}

TEST(AppleScript, DescribesAnErrorAsADictionary) {
    EXPECT_EQ(NSAppleScriptError(-1, u"a \"b\"\\ é\nc"_s).description(),
              u"{\n"
              u"    NSAppleScriptErrorAppName = \"System Events\";\n"
              u"    NSAppleScriptErrorBriefMessage = \"a \\\"b\\\"\\\\ \\U00e9\\nc\";\n"
              u"    NSAppleScriptErrorMessage = \"a \\\"b\\\"\\\\ \\U00e9\\nc\";\n"
              u"    NSAppleScriptErrorNumber = \"-1\";\n"
              u"}"_s);
}

TEST(Accessibility, PromptNamesEachThingThatIsMissing) {
    TestPlatform world;
    world.session.setTrusted(false);
    world.devices.plugIn({u"Good"_s, u"/dev/input/event4"_s});
    world.devices.plugIn(
        {u"Pad"_s, u"/dev/input/event5"_s, u"Permission denied"_s, TrackpadRemedy::installRule});
    EXPECT_FALSE(AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt::no));
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_FALSE(AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt::yes));
    const QStringList lines = world.log.take(Stream::error);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].startsWith(u"Brimlow: The trackpad \"Pad\" (/dev/input/event5) cannot be "
                                    u"read: Permission denied."_s));
}

} // namespace
} // namespace brimlow::test
