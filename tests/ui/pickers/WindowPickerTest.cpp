#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/pickers/FocusWindowPicker.h"
#include "ui/pickers/RowList.h"
#include "ui/pickers/StableTitle.h"
#include "ui/pickers/WindowScan.h"
#include "ui/style/ApplicationStyle.h"

#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

const QString optional =
    u"Optional — pick a specific window for surgical targeting, or leave unset "
    u"to just focus / launch the app on tap."_s;
const QString notScanned = u"Click the refresh icon to list this app's currently-open windows."_s;
const QString clickOne =
    u"Click a window to bind (optional). Brimlow tracks it by its system window ID — survives tab "
    u"switches but resets when the app restarts; on restart we fall back to a title substring "
    u"match, then to focusing / launching the app."_s;
const QString refreshHelp = u"Re-scan currently-open windows of this app"_s;
const QString notRunning = u"App is not running. Launch it first, then click Refresh."_s;
const QString unreadable =
    u"Found 1 The App window(s) but can't read their titles. Screen Recording permission "
    u"needed.\n\n"
    u"1) Click the button below\n2) Toggle Brimlow ON\n3) **QUIT BRIMLOW COMPLETELY** (Cmd+Q from "
    u"menu bar — not just close window)\n4) Relaunch Brimlow"_s;
const QString untitled =
    u"Found 1 The App window(s) but titles came back empty. Screen Recording IS granted but didn't "
    u"apply — try fully quitting Brimlow (Cmd+Q from the menu bar Quit) and relaunching."_s;
const QString noWindow =
    u"The App is running but has 0 visible windows. Make sure a window is actually open (not just "
    u"the dock icon)."_s;

struct WindowPicker : testing::Test {
    TestPlatform world;
    std::unique_ptr<FocusWindowPicker> view;
    std::vector<WindowBinding> bound;

    void appear(const std::optional<QString>& bundleId, const WindowBinding& binding = {},
                bool hideAlreadyBound = false) {
        view = std::make_unique<FocusWindowPicker>(hideAlreadyBound);
        QObject::connect(view.get(), &FocusWindowPicker::bindingChanged, view.get(),
                         [this](const WindowBinding& each) { bound.push_back(each); });
        view->setBundleId(bundleId);
        view->setBinding(binding);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    RowList& list() const { return *view->findChild<RowList*>(); }
    QStringList listed() const { return shownRows(list()); }
    QStringList texts() const {
        QCoreApplication::processEvents(); // panels are shown on the next turn
        return shownTexts(*view);
    }
    void refresh() const { shownButton(*view, refreshHelp)->click(); }
};

TEST(StableTitle, IsTheBrowsersOrTheApplications) {
    const QString sixty = u"\u0065\u0301"_s.repeated(60);
    const std::vector<std::pair<QString, QString>> rows{
        {u"Inbox - Google Chrome -  Work \n"_s, u"Work"_s},
        {u"Inbox - Google Chrome (Incognito)"_s, u"Google Chrome"_s},
        {u"Inbox - Google Chrome - "_s, u"Google Chrome"_s},
        {u"Docs - Google Chrome Canary"_s, u"Google Chrome Canary"_s},
        {u"A - Brave Browser - B — C"_s, u"B — C"_s},
        {u"A - Google Chrome - B - Google Chrome - C"_s, u"B - Google Chrome - C"_s},
        {u"A - google chrome"_s, u"A - google chrome"_s},
        {u"MyApp — Main.txt"_s, u"MyApp"_s},
        {u"One.txt — two words"_s, u"two words"_s},
        {u"One — Two"_s, u"Two"_s},
        {u" — \tOnly one — "_s, u" — \tOnly one — "_s},
        {u"Untitled – dash "_s, u"Untitled – dash "_s},
        {sixty + u"—a.b"_s, sixty},
        {sixty + u"x—a.b"_s, u"a.b"_s}};
    for (const auto& [title, stable] : rows)
        EXPECT_EQ(extractStableTitle(title), stable) << title.toStdString();
}

TEST_F(WindowPicker, BindsTheWindowThatIsChosenAndLetsItGo) {
    const auto number = world.session.openWindow(u"app"_s, 1, u"MyApp — <b>.txt"_s);
    world.session.openWindow(u"app.helper"_s, 3, u"Front"_s);
    world.session.openWindow(u"app"_s, 1, {});
    world.session.openWindow(u"apple"_s, 2, u"Not ours"_s);
    appear(u"app"_s);
    const QStringList rows{u"Window ID %1, current: Front"_s.arg(number + 1),
                           u"Window ID %1, current: MyApp — <b>.txt"_s.arg(number)};
    EXPECT_EQ(listed(), rows);
    EXPECT_EQ(texts(), (QStringList{u"Target Window"_s, u"2 windows"_s, optional, clickOne}));

    world.session.window(number).applicationId = u"gone"_s; // closed meanwhile
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().model()->index(1, 0)).center());
    const WindowBinding mine{number, u"MyApp"_s};
    EXPECT_EQ(view->binding(), mine);
    EXPECT_EQ(listed(), rows);
    EXPECT_EQ(texts(), (QStringList{u"Target Window"_s, u"2 windows"_s,
                                    u"Bound to window ID %1"_s.arg(number), u"fallback: MyApp"_s,
                                    clickOne}));
    shownButton(*view, u"Clear — fall back to launching / focusing the app"_s)->click();
    EXPECT_TRUE(texts().contains(optional));
    EXPECT_TRUE(shownButton(*view, refreshHelp)->hasFocus());
    for (const auto key : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(view->focusWidget(), key);
    EXPECT_EQ(bound, (std::vector{mine, WindowBinding(), mine}));
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(list().currentIndex().row(), 1) << "stays where it is";
}

TEST_F(WindowPicker, HidesTheBoundWindowOnlyWhereItIsToldTo) {
    const auto number = world.session.openWindow(u"app"_s, 1, u"Only"_s);
    appear(u"app"_s, {number, {}}, true);
    EXPECT_EQ(texts(),
              (QStringList{u"Target Window"_s, u"Bound to window ID %1"_s.arg(number),
                           u"This window is already bound. Use Refresh to scan again."_s}));
    EXPECT_FALSE(list().isVisible());
    appear(u"app"_s, {number, {}}, false);
    EXPECT_EQ(listed().size(), 1);
    EXPECT_TRUE(texts().contains(u"1 window"_s));
    EXPECT_TRUE(bound.empty()) << "was not the user";
}

TEST_F(WindowPicker, ScansWhenItAppearsAndForAnotherApplication) {
    world.session.openWindow(u"app"_s, 1, u"A"_s);
    appear({});
    EXPECT_EQ(texts(), (QStringList{u"Target Window"_s, optional, notScanned}));
    view->setBundleId(u"app"_s);
    EXPECT_EQ(listed().size(), 1);
    world.session.openWindow(u"app"_s, 1, u"B"_s);
    view->setBundleId(u"app"_s);
    EXPECT_EQ(listed().size(), 1) << "the same";
    refresh();
    EXPECT_EQ(listed().size(), 2);
    view->setBundleId(u"other"_s);
    EXPECT_EQ(texts().last(), notRunning);
    EXPECT_EQ(listed(), QStringList());
    view->setBundleId(u""_s);
    EXPECT_EQ(texts().last(), notScanned);
    view->hide();
    view->setBundleId(u"app"_s);
    EXPECT_EQ(list().model()->rowCount(), 0) << "nobody looks";
    view->show();
    EXPECT_EQ(listed().size(), 2);
}

TEST_F(WindowPicker, SaysWhyThereIsNoneAndOpensTheSettingsThatHelp) {
    world.applications.install({.id = u"app"_s, .plainName = u"The App"_s});
    world.session.setReadsTitles(false);
    for (const auto& none : {std::optional<QString>(), {u""_s}}) {
        appear(none);
        refresh();
        EXPECT_EQ(texts().last(), u"Pick an app first."_s);
    }
    view->setBundleId(u"app"_s);
    EXPECT_EQ(texts().last(), notRunning);
    EXPECT_EQ(world.settings.takeJournal(), QStringList());

    const auto number = world.session.openWindow(u"app"_s, 10, u"Secret"_s);
    refresh();
    EXPECT_EQ(texts().last(), unreadable);
    EXPECT_FALSE(texts().contains(notScanned));
    EXPECT_EQ(world.settings.takeJournal(), QStringList(u"prompt screen recording"_s));
    const QString link = u"Open Privacy & Security → Screen Recording"_s;
    auto* open = shownButton(*view, link);
    ASSERT_TRUE(open);
    EXPECT_EQ(open->text().replace(u"&&"_s, u"&"_s), link);
    open->click();
    EXPECT_EQ(world.settings.takeJournal(), QStringList(u"open screen recording"_s));

    world.session.setReadsTitles(true);
    world.session.window(number).title.clear();
    refresh();
    EXPECT_EQ(texts().last(), untitled);
    EXPECT_EQ(whyNoneIsPickable(u"The App"_s, 0, false), noWindow);
    world.session.failWindowListAfter(1);
    refresh();
    EXPECT_EQ(texts().last(), u"Couldn't enumerate windows."_s);
    EXPECT_FALSE(shownButton(*view, link));
    world.session.window(number).title = u"Told"_s;
    refresh();
    EXPECT_EQ(listed().size(), 1);
}

TEST_F(WindowPicker, KeepsItsSizeWhateverWindowsAreCalled) {
    const style::ApplicationStyle applicationStyle;
    for (const auto& part : {u"m"_s, u"\u0301"_s, u"ש"_s, u"<b>&\n"_s})
        world.session.openWindow(u"app"_s, 1, u"a"_s + part.repeated(10'000));
    appear(u"app"_s);
    view->resize(400, 400);
    QCoreApplication::processEvents();
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(bound.size(), 1U);
    view->grab();
    EXPECT_EQ(list().height(), 130);
    EXPECT_LE(view->minimumSizeHint().width(), 400);
    EXPECT_LE(view->sizeHint().width(), 700);
}

} // namespace
} // namespace brimlow::test
