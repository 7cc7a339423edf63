#include "tests/support/Speed.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/pickers/AppPickerView.h"
#include "ui/pickers/RowList.h"
#include "ui/style/ApplicationStyle.h"

#include <QLineEdit>
#include <QLocale>
#include <QTest>
#include <QThreadPool>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

const QString notes = u"com.apple.Notes"_s;
const QString chrome = u"com.google.Chrome"_s;
const QString street = u"org.straße"_s;

const QString notesRow = u"Cafe\u0301 mini, "_s + notes;
const QString chromeRow = u"Google Chrome, "_s + chrome;
const QString streetRow = u"ΟΔΟΣ, "_s + street;

struct AppPicker : testing::Test {
    TestPlatform world;
    AppPickerView view;
    QLineEdit& query = *view.findChild<QLineEdit*>();
    RowList& list = *view.findChild<RowList*>();
    QStringList chosen; // "none" where nothing is

    AppPicker() {
        for (const auto& [id, name] : {std::pair{notes, u"Cafe\u0301 mini"_s},
                                       {chrome, u"Google Chrome"_s},
                                       {street, u"ΟΔΟΣ"_s}})
            world.applications.install({.id = id, .plainName = name});
        QObject::connect(&view, &AppPickerView::selectedBundleIdChanged, &view,
                         [this](const auto& id) { chosen << id.value_or(u"none"_s); });
    }

    void finishScan() {
        QThreadPool::globalInstance()->waitForDone();
        world.time.run();
        QCoreApplication::processEvents(); // layouts
    }
    void appear() {
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        finishScan();
    }
    QStringList listed() const { return shownRows(list); }
};

TEST_F(AppPicker, ScansAndFindsNamesAndIdentifiersInAnyCase) {
    view.show();
    EXPECT_EQ(shownTexts(view), QStringList(u"Scanning Applications…"_s));
    EXPECT_EQ(listed(), QStringList());
    finishScan();
    EXPECT_EQ(shownTexts(view), QStringList());
    EXPECT_EQ(query.placeholderText(), u"Search apps…"_s);
    const std::vector<std::pair<QString, QStringList>> rows{
        {u"\t \u3000 "_s, {notesRow, chromeRow, streetRow}},
        {u" chrome\t"_s, {chromeRow}},
        {u"COM."_s, {notesRow, chromeRow}},
        {u"οδος"_s, {streetRow}},
        {u"STRASSE"_s, {streetRow}},
        {u"CAFÉ MINI"_s, {notesRow}},
        {u"g.*e"_s, {}}};
    for (const auto& [text, found] : rows) {
        query.setText(text);
        EXPECT_EQ(listed(), found) << text.toStdString();
    }
    QLocale::setDefault(QLocale(QLocale::Turkish));
    query.setText(u"CAFÉ MIN"_s);
    EXPECT_EQ(listed(), QStringList()) << "ı and i are two letters";
    QLocale::setDefault(QLocale::c());
}

TEST_F(AppPicker, ShowsWhatItIsGivenAsAChipAndScansEachTimeItAppears) {
    view.setSelectedBundleId(chrome);
    view.show();
    EXPECT_EQ(shownTexts(view), QStringList(chrome)) << "not known yet";
    finishScan();
    EXPECT_EQ(shownTexts(view), QStringList(u"Google Chrome"_s));
    EXPECT_FALSE(query.isVisible());
    view.hide();
    world.applications.remove(chrome);
    view.show();
    finishScan();
    EXPECT_EQ(shownTexts(view), QStringList(chrome)) << "gone";
    EXPECT_EQ(chosen, QStringList()) << "was not the user";
}

TEST_F(AppPicker, ChoosesChangesCancelsAndClearsByMouse) {
    appear();
    EXPECT_FALSE(shownButton(view, u"Cancel"_s));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(1, 0)).center());
    EXPECT_EQ(chosen, QStringList(chrome));
    EXPECT_EQ(shownTexts(view), QStringList(u"Google Chrome"_s));
    shownButton(view, u"Change app"_s)->click();
    EXPECT_EQ(listed().size(), 3);
    const auto described = [this](int row) {
        return list.model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    };
    EXPECT_EQ(described(1), u"Selected"_s);
    EXPECT_EQ(described(0), QString());
    query.setText(u"notes"_s);
    shownButton(view, u"Cancel"_s)->click();
    EXPECT_EQ(shownTexts(view), QStringList(u"Google Chrome"_s));
    EXPECT_EQ(query.text(), QString());
    auto* clear = shownButton(view, u"Clear selection"_s);
    EXPECT_EQ(clear->toolTip(), clear->accessibleName());
    clear->click();
    EXPECT_EQ(chosen, (QStringList{chrome, u"none"_s}));
    EXPECT_TRUE(query.hasFocus());
    EXPECT_FALSE(shownButton(view, u"Cancel"_s));
}

TEST_F(AppPicker, IsAllInTheKeyboard) {
    appear();
    const auto type = [this](std::initializer_list<Qt::Key> keys) {
        for (const auto key : keys)
            QTest::keyClick(view.focusWidget(), key);
    };
    type({Qt::Key_Down});
    EXPECT_TRUE(list.hasFocus());
    type({Qt::Key_Escape});
    EXPECT_TRUE(query.hasFocus()) << "nothing to cancel";
    type({Qt::Key_Down, Qt::Key_Up});
    EXPECT_TRUE(query.hasFocus());
    type({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(chosen, QStringList(chrome));
    EXPECT_TRUE(shownButton(view, u"Change app"_s)->hasFocus());
    type({Qt::Key_Space, Qt::Key_Return});
    EXPECT_TRUE(query.hasFocus()) << "nothing is searched for";
    type({Qt::Key_Escape});
    EXPECT_TRUE(shownButton(view, u"Change app"_s));
    EXPECT_EQ(chosen.size(), 1);
    type({Qt::Key_Space});
    QTest::keyClicks(&query, u"note"_s);
    type({Qt::Key_Enter});
    EXPECT_EQ(chosen.last(), notes);
}

// Typed a few times: other work on the machine disturbs some of them.
TEST_F(AppPicker, FiltersFiveHundredApplicationsWithinAFrame) {
    const style::ApplicationStyle applicationStyle;
    for (int index = 0; index < 500; ++index)
        world.applications.install(
            {.id = u"org.example.a%1"_s.arg(index), .plainName = u"Entry %1 of many"_s.arg(index)});
    appear();
    ASSERT_EQ(listed().size(), 503);
    double quickest = 1e9;
    for (int round = 0; round < 5; ++round) {
        query.setText(u"nothing"_s);
        const double before = processorMilliseconds();
        query.setText(u"e"_s); // is in all of them
        list.grab();
        quickest = std::min(quickest, processorMilliseconds() - before);
    }
    std::printf("keystroke among 500 applications: %.2f ms\n", quickest);
    EXPECT_LT(quickest, 16 * slowdown);
}

TEST_F(AppPicker, KeepsItsSizeWhateverApplicationsAreCalled) {
    const style::ApplicationStyle applicationStyle;
    view.setSelectedBundleId(u"ש"_s.repeated(10'000));
    appear();
    EXPECT_LE(view.minimumSizeHint().width(), 400);
    EXPECT_LE(view.sizeHint().width(), 500);
    EXPECT_LE(view.minimumSizeHint().height(), 50);
    view.grab();
}

} // namespace
} // namespace brimlow::test
