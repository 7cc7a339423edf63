#include "tests/actions/ActionWorld.h"

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Stream;

// Errors of the log go by prefix: what the ladder says by number, and by title.
QString byNumber(const QString& text) {
    return u"ActionExecutor.focus-id: "_s + text;
}
QString byTitle(const QString& text) {
    return u"ActionExecutor.focus: "_s + text;
}

/// What raising the window and then activating its application leaves in the journal.
QStringList raised(const QString& title) {
    return {u"unhide "_s + title, u"raise "_s + title, u"activate "_s + title,
            u"activate "_s + title};
}

QString counted(int count) {
    return u"CGWindowList: found %1 titled Post window(s) across all Spaces"_s.arg(count);
}

struct WindowFocus : ActionWorld {
    /// Which image the process loads for the function that tells window numbers.
    static void useImage(const char* folder) { qputenv("BRIMLOW_FRAMEWORKS", folder); }

    void SetUp() override { useImage(BRIMLOW_REAL_FRAMEWORKS); }

    QString focus(const std::optional<QString>& title, std::optional<std::uint32_t> number = {}) {
        return execute(TapAction::focusWindow, mail, title, number);
    }

    /// The lines and the journal of what runs after the result was given.
    QStringList laterLines() {
        world.session.takeJournal();
        world.time.advance(1);
        return world.log.take(Stream::error);
    }

    platform::SimulatedSession& session = world.session;
};

TEST_F(WindowFocus, ActivatesOnlyWhenNoWindowIsNamed) {
    session.openWindow(mail, 100, u"inbox"_s);
    session.openWindow(u"other"_s, 7, u"other"_s);
    for (const auto& title : {std::optional<QString>(), std::optional(u" \t\u00A0\u2003"_s)}) {
        EXPECT_EQ(focus(title), u"Activated Post"_s);
        EXPECT_EQ(session.takeJournal(), QStringList(u"activate inbox"_s));
        EXPECT_EQ(laterLines(), QStringList());
        EXPECT_EQ(session.takeJournal(), QStringList());
    }
    EXPECT_EQ(execute(TapAction::focusWindow, u"other"_s), u"Activated other"_s); // not installed
    EXPECT_EQ(session.takeJournal(), QStringList(u"activate other"_s));
}

TEST_F(WindowFocus, LaunchesWhatDoesNotRunAndLooksForNoWindow) {
    for (const QString& application : {mail, u"unknown"_s}) {
        EXPECT_EQ(executor->execute(TapAction::focusWindow, application, u"inbox"_s, 5),
                  application == mail ? u"Launched org.example.mail"_s
                                      : u"App not running and not installed: unknown"_s);
        EXPECT_EQ(world.log.take(Stream::error),
                  QStringList(u"ActionExecutor.focus-app: called with bundleId='"_s + application
                              + u'\''));
        EXPECT_EQ(laterLines(), QStringList());
    }
    EXPECT_EQ(world.applications.takeLaunches(), QStringList(mail));
}

TEST_F(WindowFocus, FocusesByNumberOnAnotherWorkspaceAfterTheSwitch) {
    session.setWorkspaces(3, 2);
    const auto wanted = session.openWindow(mail, 100, u"wanted"_s);
    session.setWorkspaces(3, 0);
    session.openWindow(mail, 101, u"front"_s);
    session.openWindow(u"other"_s, 7, u"other"_s);
    EXPECT_EQ(focus(u"saved"_s, wanted),
              u"Activated Post → focusing target (after Space switch)"_s);
    EXPECT_EQ(session.takeJournal(), QStringList(u"activate front"_s));
    world.time.advance(0.349999);
    EXPECT_EQ(session.takeJournal(), QStringList());
    world.time.advance(0.000001);
    EXPECT_EQ(session.takeJournal(), raised(u"wanted"_s));
    EXPECT_EQ(world.log.take(Stream::error),
              QStringList(byNumber(
                  u"focused id %1 via _AXUIElementGetWindow (owner pid 100)"_s.arg(wanted))));

    // Now it is active, be it by another of its processes: no delay, but later all the same.
    EXPECT_EQ(focus(u""_s, wanted), u"Activated Post → focusing target"_s);
    EXPECT_EQ(session.takeJournal(), QStringList(u"activate wanted"_s));
    world.time.advance(0);
    EXPECT_EQ(session.takeJournal(), raised(u"wanted"_s));

    focus(u""_s, wanted);
    executor.reset();
    EXPECT_EQ(laterLines(), QStringList());
    EXPECT_EQ(session.takeJournal(), QStringList());
}

TEST_F(WindowFocus, AStaleNumberLeavesItToTheSavedTitle) {
    session.openWindow(mail, 100, u"Inbox — Work"_s);
    const auto foreign = session.openWindow(mail + u"box"_s, 200, u"Inbox — Work"_s);
    session.openWindow(mail, 100, u"front"_s);
    for (const auto number : {4711U, foreign}) {
        focus(u"inbox - work"_s, number);
        const auto lines = laterLines();
        EXPECT_EQ(
            lines.first(),
            byNumber(u"window id %1 not present — app likely restarted, saved ID is stale"_s.arg(
                number)));
        EXPECT_EQ(lines.last(), byTitle(u"CG+AX: focused 'Inbox — Work' (pid 100, exact)"_s));
        EXPECT_EQ(session.takeJournal(), raised(u"Inbox — Work"_s));
    }
    focus(u" "_s, 4711);
    EXPECT_EQ(laterLines().size(), 1);
}

TEST_F(WindowFocus, TheLiveTitleDecidesWhenNoElementHasTheNumber) {
    useImage(BRIMLOW_FAKE_FRAMEWORKS "/mute");
    session.openWindow(mail, 100, u"saved"_s);
    const auto number = session.openWindow(mail, 100, u"live"_s);
    const QString noElement = byNumber(
        u"id %1 is in CGWindowList but no AX window of pid 100 reported that id"_s.arg(number));
    focus(u"saved"_s, number);
    auto lines = laterLines();
    EXPECT_EQ(lines.first(2),
              (QStringList{noElement, byNumber(u"falling back to title-substring focus on live "
                                               u"title 'live'"_s)}));
    EXPECT_EQ(lines.last(), byTitle(u"CG+AX: focused 'live' (pid 100, exact)"_s));

    session.setReadsTitles(false);
    focus(u" "_s, number);
    EXPECT_EQ(
        laterLines(),
        (QStringList{noElement, byNumber(u"id %1 present but no readable title (Screen Recording "
                                         u"permission?) — giving up"_s.arg(number))}));
}

TEST_F(WindowFocus, WithoutTheFunctionOrAProcessTheLiveTitleDecides) {
    useImage(BRIMLOW_FAKE_FRAMEWORKS "/nowhere");
    const auto number = session.openWindow(mail, 100, u"live"_s);
    const auto anonymous = session.openWindow(mail, 0, u"no process"_s);
    const QString notice = u"ActionExecutor: _AXUIElementGetWindow unavailable — focus-by-ID falls "
                           u"back to title matching"_s;
    for (const int notices : {1, 0}) { // it is told once
        focus({}, number);
        EXPECT_EQ(laterLines().count(notice), notices);
        EXPECT_EQ(session.takeJournal(), raised(u"live"_s));
    }
    // Without a process it is no candidate, but System Events sees it.
    focus({}, anonymous);
    EXPECT_EQ(laterLines().last(),
              byTitle(u"AppleScript: focused 'no process' (match type: exact)"_s));
    EXPECT_EQ(session.takeJournal(),
              (QStringList{u"raise no process"_s, u"activate no process"_s}));
}

TEST_F(WindowFocus, EveryFailureOfTheListEndsInALine) {
    const auto number = session.openWindow(mail, 100, u"inbox"_s);
    session.openWindow(mail, 100, u"front"_s);
    const struct {
        int lists; // read before the one that fails
        bool goesOn;
        std::optional<std::uint32_t> number;
        QString title;
        QString line;
    } rows[] = {
        {0, true, number, u"inbox"_s, byNumber(u"CGWindowListCopyWindowInfo returned nil"_s)},
        {2, true, number, {}, byNumber(u"AX windows query failed for owner pid 100"_s)},
        {1, true, {}, u"inbox"_s, byTitle(counted(0))},
        {2,
         true,
         {},
         u"inbox"_s,
         byTitle(u"Match found ('inbox' pid 100) but AX on that pid failed (-25204)"_s)},
        {3,
         false,
         {},
         u"absent"_s,
         byTitle(u"AppleScript path failed: System Events got an error: the windows cannot be "
                 u"listed. — falling back to AX direct."_s)},
        {5,
         false,
         {},
         u"absent"_s,
         byTitle(u"(dump failed: System Events got an error: the windows cannot be listed.)"_s)},
    };
    for (const auto& row : rows) {
        focus(row.title, row.number);
        session.failWindowListAfter(row.lists);
        const auto lines = laterLines();
        EXPECT_TRUE(lines.contains(row.line)) << row.line.toStdString();
        EXPECT_EQ(lines.last().contains(u"focused 'inbox'"_s), row.goesOn)
            << lines.last().toStdString();
    }
}

TEST_F(WindowFocus, TitlesMatchNormalisedAndExactlyBeforePartly) {
    const QString injection = u"\"\\\" & (do shell script \"x\") & \""_s;
    const struct {
        pid_t process; // without one, System Events decide
        int focused;   // of the titles
        QString saved;
        QStringList titles; // front to back
        QString pass;
    } rows[] = {
        {100, 1, u"INBOX  –  Work"_s, {u"inbox - work (3)"_s, u"Inbox — Work"_s}, u"exact"_s},
        {100, 0, u"a-b-c-d-e-f-g"_s, {u"A—B–C‒D−E‑F－G"_s}, u"exact"_s},
        {100, 0, u"a b"_s, {u"\u00A0A\u2009\u2009b "_s}, u"exact"_s},
        {100, 0, u"ПРИЁМКА"_s, {u"приёмка — 1"_s, u"приёмка — 2"_s}, u"substring"_s},
        {0, 2, u"Inbox"_s, {u"my inbox"_s, u"INBOX"_s, u"Inbox"_s}, u"exact"_s},
        {0, 1, u"Inbox"_s, {u"my inbox"_s, u"INBOX"_s}, u"exact-ci"_s},
        {0, 0, injection, {injection + u"|%1"_s}, u"substring"_s},
    };
    for (const auto& row : rows) {
        std::vector<std::uint32_t> opened;
        for (auto title = row.titles.rbegin(); title != row.titles.rend(); ++title)
            opened.push_back(session.openWindow(mail, row.process, *title));
        focus(row.saved);
        const QString& title = row.titles[row.focused];
        const QString line = row.process == 0 ? u"AppleScript: focused '%1' (match type: %2)"_s
                                              : u"CG+AX: focused '%1' (pid 100, %2)"_s;
        EXPECT_EQ(laterLines().last(), byTitle(line.arg(title, row.pass)));
        EXPECT_EQ(session.takeJournal().last(), u"activate "_s + title);
        for (const auto number : opened)
            session.windows().close(number);
    }
}

TEST_F(WindowFocus, WindowsOfHelpersAreItsOwnAndThoseOfNamesakesAreNot) {
    session.openWindow(mail, 100, u"inbox"_s);
    session.openWindow(u"a dialog of it"_s, 100, u"dialog target"_s);
    session.openWindow(mail + u".helper"_s, 200, u"helper target"_s);
    session.openWindow(mail + u"box"_s, 300, u"namesake target"_s);
    session.openWindow(mail + u"box"_s, 100, u"another application of its process, target"_s);
    focus(u"target"_s);
    const auto lines = laterLines();
    EXPECT_EQ(lines[2], byTitle(counted(3)));
    EXPECT_EQ(lines[3], byTitle(u"CG+AX: focused 'helper target' (pid 200, substring)"_s));
}

TEST_F(WindowFocus, AMissTellsAllTitlesThatCouldBeSeen) {
    session.openWindow(mail, 100, u"inbox"_s);
    session.openWindow(mail, 100, u"line\nbreak"_s);
    focus(u" absent\t"_s);
    const QStringList expected{
        u"called with bundleId='org.example.mail' titleSubstring='absent'"_s,
        u"found running app: Post PID=100"_s,
        counted(2),
        u"CG+AX (current Space): no candidate matched. Visible window titles:"_s,
        u"  | [pid 100] line\nbreak"_s,
        u"  | [pid 100] inbox"_s,
        u"AppleScript: no window matched 'absent' — dumping ALL Post windows AppleScript can see…"_s,
        u"All visible Post windows:\n  | line\nbreak\n  | inbox\n"_s};
    const auto lines = laterLines();
    ASSERT_EQ(lines.size(), expected.size());
    for (qsizetype i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i], byTitle(expected[i]));

    // Titles that cannot be read are no candidates, and empty for System Events too.
    session.setReadsTitles(false);
    focus(u"absent"_s);
    const auto unread = laterLines();
    EXPECT_EQ(unread[2], byTitle(counted(0)));
    EXPECT_EQ(unread.last(), byTitle(u"All visible Post windows:\n  | \n  | \n"_s));
}

} // namespace
} // namespace brimlow::test
