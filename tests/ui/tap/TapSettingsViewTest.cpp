#include "ui/tap/TapSettingsView.h"

#include "engine/AppCoordinator.h"
#include "profiles/ProfileJSONDocument.h"
#include "tests/support/Speed.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/editor/BindingEditorSheet.h"
#include "ui/style/ApplicationStyle.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>

#include <utility>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

const QString exportButton = QStringLiteral("Export this profile to a file you can share");
const QString importButton = QStringLiteral("Import a profile from a shared file");

/// Answers when the test says so.
struct ScriptedDialogs final : FileDialogs {
    Request request{};
    Done answer;
    int asked = 0;

    void save(const Request& what, Done done) override {
        request = what;
        answer = std::move(done);
        ++asked;
    }
    void open(const Request& what, Done done) override { save(what, std::move(done)); }
};

/// The page as a person meets it: by what it shows and its keys.
struct TapPage : testing::Test {
    TestPlatform world;
    AppSettings settings;
    PermissionsManager permissions;
    AppCoordinator coordinator{settings, permissions, 10};
    TapPositionMappings& store = coordinator.positionMappings;
    ScriptedDialogs dialogs;
    QWidget window;
    std::unique_ptr<TapSettingsView> view;

    void SetUp() override {
        window.resize(580, 560);
        window.show();
        open();
    }
    void open() {
        view = std::make_unique<TapSettingsView>(coordinator, dialogs, &window);
        view->resize(window.size());
        view->show();
        QCoreApplication::processEvents();
    }

    /// On the page, or on the sheet over it.
    void press(const QString& name) {
        auto* button = shownButton(sheet() ? *sheet() : *view, name);
        ASSERT_TRUE(button) << name.toStdString();
        QTest::keyClick(button, Qt::Key_Space);
        settle();
    }
    void settle() {
        world.time.run();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Of the file dialog that was asked for last, once.
    void answer(const FileDialogs::Answer& given) {
        std::exchange(dialogs.answer, {})(given);
        settle();
    }
    QWidget* sheet() const {
        for (auto* dialog : view->findChildren<QDialog*>())
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    }
    void type(Qt::Key key) {
        QTest::keyClick(sheet(), key);
        settle();
    }
    QStringList profileNames() const {
        QStringList names;
        for (const TapProfile& profile : store.profiles.get())
            names << profile.name;
        return names;
    }
    QString inPicker() const { return view->findChild<QComboBox*>()->currentText(); }
    int rowCount() const {
        int count = 0;
        for (const auto* button : view->findChildren<QPushButton*>())
            count += button->isVisible() && button->text() == u"Edit"_s;
        return count;
    }
    QString describes(const QString& binding) const {
        return shownButton(*view, u"Edit "_s + binding)->accessibleDescription();
    }
};

TEST_F(TapPage, SaysWhatIsThereAndWhatIsMissing) {
    const QString empty = u"No tap bindings yet"_s;
    const QString notice = u"Bindings exist but none are recorded yet — taps won't trigger any "
                           u"action until you record at least one position."_s;
    EXPECT_EQ(rowCount(), 10);
    EXPECT_EQ(describes(u"Left 2"_s), u"No Action, 1 sample  •  match radius ≈ 0.10000"_s);
    const auto expectNotes = [&](bool isEmpty, bool isUnrecorded) {
        settle();
        EXPECT_EQ(shownTexts(*view).contains(empty), isEmpty);
        EXPECT_EQ(shownTexts(*view).contains(notice), isUnrecorded);
    };
    expectNotes(false, false);
    store.clearAllBindings();
    expectNotes(true, false);
    store.add({.id = QUuid::createUuid(), .name = u"Later"_s, .appName = u"firefox"_s});
    expectNotes(false, true);
    EXPECT_EQ(rowCount(), 1);
    EXPECT_EQ(describes(u"Later"_s), u"No Action → firefox, Not recorded — won't trigger"_s);
    store.clearAllBindings();
    settle();
    press(u"Use Default Layout (10 positions, 5 left + 5 right)"_s);
    EXPECT_EQ(rowCount(), 10);
    expectNotes(false, false);
}

TEST_F(TapPage, ANewProfileNeedsAName) {
    press(u"New Profile"_s);
    auto* field = sheet()->findChild<QLineEdit*>();
    EXPECT_FALSE(shownButton(*sheet(), u"Create"_s)->isEnabled());
    field->setText(u" \t "_s);
    EXPECT_FALSE(shownButton(*sheet(), u"Create"_s)->isEnabled());
    type(Qt::Key_Return);
    type(Qt::Key_Escape);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(profileNames(), QStringList(u"Default"_s));

    press(u"New Profile"_s);
    field = sheet()->findChild<QLineEdit*>();
    EXPECT_EQ(field->text(), QString()) << "what was typed before is gone";
    QTest::keyClicks(field, u"<b>Work</b> && %1"_s);
    type(Qt::Key_Return);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(profileNames(), QStringList({u"Default"_s, u"<b>Work</b> && %1"_s}));
    EXPECT_EQ(inPicker(), u"<b>Work</b> && %1"_s);
    QTest::keyClick(view->findChild<QComboBox*>(), Qt::Key_Up);
    EXPECT_EQ(store.activeProfile()->name, u"Default"_s);
}

TEST_F(TapPage, WhatWasAskedForIsDoneToTheProfileItWasAskedFor) {
    store.createProfile(u"Other"_s);
    settle();
    press(u"Rename profile"_s);
    store.switchTo(store.profiles.get().front().id); // from the tray meanwhile
    settle();
    auto* field = sheet()->findChild<QLineEdit*>();
    EXPECT_EQ(field->text(), u"Other"_s);
    field->setText(u"Mine"_s);
    press(u"Save"_s);
    EXPECT_EQ(profileNames(), QStringList({u"Default"_s, u"Mine"_s}));

    press(u"Delete profile"_s);
    store.switchTo(store.profiles.get().back().id);
    settle();
    press(u"Delete Profile"_s);
    EXPECT_EQ(profileNames(), QStringList(u"Mine"_s));
}

TEST_F(TapPage, WhatCannotBeUndoneIsAskedForFirst) {
    const auto before = store.profiles.get();
    for (const QString& button : {u"Clear All Bindings"_s, u"Delete profile"_s})
        for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
            press(button);
            ASSERT_TRUE(sheet());
            type(key);
            EXPECT_EQ(sheet(), nullptr);
            EXPECT_EQ(store.profiles.get(), before);
        }
}

TEST_F(TapPage, TheEditorIsThereForAsLongAsItsBindingIs) {
    press(u"Edit Left 2"_s);
    auto* editor = dynamic_cast<BindingEditorSheet*>(sheet());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->draft().name, u"Left 2"_s);
    store.createProfile(u"Other"_s);
    settle();
    EXPECT_EQ(sheet(), nullptr);

    press(u"Add Binding"_s);
    store.switchTo(store.profiles.get().front().id);
    settle();
    ASSERT_NE(sheet(), nullptr) << "a new binding goes to whichever profile is active";
    press(u"Save"_s);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(rowCount(), 11);
}

TEST_F(TapPage, ExportsWhatWasThereWhenItWasAskedFor) {
    ::umask(027);
    store.renameProfile(store.activeProfileId, u"a/b:c\\d"_s);
    settle();
    press(exportButton);
    EXPECT_EQ(dialogs.request.proposedName, u"Brimlow-a-b-c-d.json"_s);
    EXPECT_EQ(dialogs.request.contentType, u"application/json"_s);
    press(exportButton);
    EXPECT_EQ(dialogs.asked, 1) << "its dialog is open";
    store.clearAllBindings();
    const QString path = world.folder.filePath(u"shared ü.json"_s);
    answer({.path = path, .error = {}});
    EXPECT_TRUE(QFile::permissions(path) & QFile::ReadGroup) << "others may read it";
    EXPECT_FALSE(QFile::permissions(path) & QFile::ReadOther) << "as the user's mask says";

    press(importButton);
    answer({.path = path, .error = {}});
    EXPECT_EQ(inPicker(), u"a/b:c\\d 2"_s);
    EXPECT_EQ(rowCount(), 10);

    world.log.take();
    for (const auto& given : {FileDialogs::Answer{},
                              {.path = {}, .error = u"No."_s},
                              {.path = u"/proc/x"_s, .error = {}}}) {
        press(exportButton);
        answer(given);
        EXPECT_EQ(sheet(), nullptr) << "the user hears nothing";
    }
    EXPECT_EQ(world.log.take(platform::Stream::error).size(), 1) << "of what went wrong";
}

TEST_F(TapPage, SaysWhyAFileIsNotImportedAndReadsNoneWithoutEnd) {
    const QString unread = u"Couldn't read that file."_s;
    const QString unreadable = u"This file couldn't be read as a Brimlow profile."_s;
    const QString pipe = world.folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString huge = world.folder.filePath(u"huge.json"_s);
    QFile file(huge);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("[") == 1);
    ASSERT_TRUE(file.resize(200 << 20));
    QElapsedTimer timer;
    timer.start();
    for (const auto& [path, error, message] :
         {std::tuple(QString(), u"It is gone."_s, u"It is gone."_s),
          {u"/nowhere"_s, QString(), unread},
          {pipe, QString(), unread},
          {u"/dev/zero"_s, QString(), unread},
          {huge, QString(), unreadable}}) {
        press(importButton);
        answer({.path = path, .error = error});
        ASSERT_NE(sheet(), nullptr) << path.toStdString();
        EXPECT_EQ(shownTexts(*sheet()), QStringList({u"Import failed"_s, message}));
        type(Qt::Key_Return);
        EXPECT_EQ(sheet(), nullptr);
    }
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_EQ(ProfileJSONDocument::read(huge)->data.size(),
              ProfileJSONDocument::largestProfile + 1);
    press(importButton);
    answer({});
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(profileNames(), QStringList(u"Default"_s));
}

/// 200 bindings in a dressed window that is painted.
struct LargeTapPage : TapPage {
    style::ApplicationStyle applicationStyle;

    void SetUp() override {
        for (int i = 0; i < 190; ++i)
            store.add({.id = QUuid::createUuid(),
                       .name = u"Spot %1"_s.arg(i),
                       .action = TapAction::openApp,
                       .appName = u"org.mozilla.firefox"_s,
                       .samples = {{i % 19 / 20.0, i / 19 / 10.0}}});
        TapPage::SetUp();
    }
    void change(std::size_t number) {
        auto profiles = store.profiles.get();
        profiles.front().bindings[number % 200].name = u"Changed %1"_s.arg(number % 1000, 4);
        store.profiles = profiles; // which also writes it
    }
};

TEST_F(LargeTapPage, OpensAndFollowsTheStoreAtOnce) {
    double opening = 1e9;
    for (int turn = 0; turn < 5; ++turn) {
        view.reset();
        const double before = processorMilliseconds();
        open();
        opening = std::min(opening, processorMilliseconds() - before);
    }
    double repaint = 1e9;
    for (std::size_t turn = 0; turn < 20; ++turn) {
        change(turn);
        const double before = processorMilliseconds(); // the view's part begins
        settle();
        repaint = std::min(repaint, processorMilliseconds() - before);
    }
    std::printf("opening 200 bindings: %.1f ms, a change of one of them: %.2f ms\n", opening,
                repaint);
    EXPECT_LT(opening, 150 * slowdown);
    EXPECT_LT(repaint, 16 * slowdown);
}

/// Of 300 changes, or as many as the environment says.
TEST_F(LargeTapPage, KeepsNothingOfWhatItShowed) {
    bool isSet = false;
    const int wanted = qEnvironmentVariableIntValue("BRIMLOW_TEST_CHANGES", &isSet);
    const auto growthOver = [this](int changes) {
        const auto before = static_cast<double>(::mallinfo2().uordblks);
        for (int number = 0; number < changes; ++number) {
            change(static_cast<std::size_t>(number));
            settle();
        }
        return static_cast<double>(::mallinfo2().uordblks) - before;
    };
    growthOver(300); // fills what caches there are
    const double growth = growthOver(isSet ? wanted : 300);
    std::printf("growth over the changes: %.1f kB\n", growth / 1000);
    EXPECT_LT(growth, 60e3); // what caches hold more by chance
}

} // namespace
} // namespace brimlow::test
