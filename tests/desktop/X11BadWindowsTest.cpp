// Windows whose clients are careless or mean.

#include "tests/desktop/X11Desktop.h"
#include "tests/desktop/X11TestClient.h"

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

class BadWindows : public X11Desktop {};

INSTANTIATE_TEST_SUITE_P(On, BadWindows, managers, nameOf);

TestProperty title(const QByteArray& bytes) {
    return {"_NET_WM_NAME", "UTF8_STRING", 8, bytes};
}

TEST_P(BadWindows, TitlesOfAnyKindAreRead) {
    X11TestClient client(desktop.displayName());
    const auto window = client.open({});
    ASSERT_TRUE(becomesListed(window));
    EXPECT_EQ(listed(window)->title, QString());
    EXPECT_EQ(listed(window)->applicationId, QString());
    EXPECT_EQ(listed(window)->ownerPid, getpid()); // says the server, the client does not

    const QByteArray longTitle = QByteArray("äx|").repeated(2500);
    const struct {
        const char* about;
        TestProperty property;
        QString expected;
    } rows[] = {
        {"10 kB", title(longTitle), QString::fromUtf8(longTitle)},
        {"line breaks", title("a\nb\r\nc"), u"a\nb\r\nc"_s},
        {"bars, quotes, backslashes", title(R"(a|b "c" 'd' \e $(f) `g`)"),
         uR"(a|b "c" 'd' \e $(f) `g`)"_s},
        {"invalid UTF-8", title("a\xff\xc3(\xe2\x82 b"), u"a\xfffd\xfffd(\xfffd\xfffd b"_s},
        {"right to left", title("\xd7\xa9\xd7\x9c\xe2\x80\xae\xd8\xb3 1"), u"של\x202eس 1"_s},
        {"only blanks", title("  "), u"  "_s},
        {"behind a NUL", title(QByteArray("a\0b", 3)), u"a"_s},
        {"numbers for text", {"_NET_WM_NAME", "UTF8_STRING", 32, "abcd"}, QString()},
        {"an unknown type", {"_NET_WM_NAME", "CARDINAL", 8, "abcd"}, QString()},
        {"the old name instead", {"WM_NAME", "STRING", 8, "caf\xe9"}, u"café"_s},
    };
    for (const auto& row : rows) {
        client.set(window, row.property);
        ASSERT_TRUE(listed(window)) << row.about;
        EXPECT_EQ(listed(window)->title, row.expected) << row.about;
    }
}

TEST_P(BadWindows, PropertiesOfTheWrongShapeCountAsAbsent) {
    X11TestClient client(desktop.displayName());
    const auto window = client.open({title("plain"),
                                     {"_NET_WM_PID", "CARDINAL", 32, "\xff\xff\xff\xff"},
                                     {"_NET_WM_WINDOW_TYPE", "STRING", 8, "dock"},
                                     {"_GTK_APPLICATION_ID", "UTF8_STRING", 16, "abcd"},
                                     {"WM_CLASS", "STRING", 32, "abcd"}});
    ASSERT_TRUE(becomesListed(window));
    EXPECT_EQ(listed(window)->title, u"plain"_s);
    EXPECT_EQ(listed(window)->ownerPid, getpid());
    EXPECT_EQ(listed(window)->applicationId, QString());
    EXPECT_TRUE(listed(window)->inTaskList);

    const struct {
        QByteArray wmClass;
        QString expected;
    } rows[] = {{"only", u"only"_s},
                {QByteArray("a\0B", 3), u"B"_s},
                {QByteArray("\0\0\0\0", 4), QString()},
                {QByteArray("x\0XTerm\0more", 12), u"debian-xterm"_s},
                {QByteArray(100000, 'x'), QString(0x10000, u'x')}};
    for (const auto& row : rows) {
        client.set(window, {"WM_CLASS", "STRING", 8, row.wmClass});
        EXPECT_EQ(listed(window)->applicationId, row.expected);
    }
    for (const char* type : {"_NET_WM_WINDOW_TYPE_UTILITY", "_NET_WM_WINDOW_TYPE_DOCK"}) {
        const auto other =
            client.open({{"_NET_WM_WINDOW_TYPE", "ATOM", 32, client.atomBytes(type)}});
        ASSERT_TRUE(desktop.waitFor([&](const auto& now) { return now.window(other); }));
        EXPECT_EQ(listed(other).has_value(), QByteArrayView(type).endsWith("UTILITY"));
        EXPECT_FALSE(listed(other) && listed(other)->inTaskList);
    }
}

TEST_P(BadWindows, AWindowMayVanishAtAnyMoment) {
    X11TestClient client(desktop.displayName());
    auto& windows = session->windows();
    for (const auto request :
         {&platform::Windows::activate, &platform::Windows::raise, &platform::Windows::unhide,
          &platform::Windows::hide, &platform::Windows::close}) {
        const auto window = client.open({title("mayfly")});
        ASSERT_TRUE(becomesListed(window));
        client.destroy(window);
        // The manager may still list it; the server knows it no more.
        const auto outcome = (windows.*request)(window);
        EXPECT_TRUE(outcome || outcome.reason == u"that window does not exist any more"_s);
        EXPECT_FALSE(listed(window));
        EXPECT_TRUE(desktop.waitFor([&](const DesktopState&) {
            return (windows.*request)(window).reason == u"that window does not exist any more"_s;
        }));
    }
    EXPECT_FALSE(session->input().post({.keyCode = 13, .down = true, .flags = 0x100000}))
        << "no window is left to close";
    EXPECT_FALSE(session->connectionLost());
    EXPECT_TRUE(windows.list());
}

} // namespace
} // namespace brimlow::desktop
