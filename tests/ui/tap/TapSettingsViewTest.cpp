#include "ui/tap/TapSettingsView.h"

#include "engine/AppCoordinator.h"
#include "platform/RegularFile.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/editor/BindingEditorSheet.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

/// Answers when the test says so.
struct ScriptedDialogs final : FileDialogs {
    Request request{};
    Done answer;
    int asked = 0;

    void save(const Request& what, Done done) override { take(what, std::move(done)); }
    void open(const Request& what, Done done) override { take(what, std::move(done)); }
    void take(const Request& what, Done done) {
        request = what;
        answer = std::move(done);
        ++asked;
    }
};

/// The page as a person meets it: by what it shows and its keys.
struct TapPage : testing::Test {
    TestPlatform world;
    AppSettings settings;
    PermissionsManager permissions;
    AppCoordinator coordinator{settings, permissions, 10};
    TapPositionMappings& store = coordinator.positionMappings;
    ScriptedDialogs dialogs;
    std::unique_ptr<TapSettingsView> view;

    void SetUp() override {
        view = std::make_unique<TapSettingsView>(coordinator, dialogs);
        view->show();
    }

    void press(const QWidget& where, const QString& button) {
        auto* found = shownButton(where, button);
        ASSERT_NE(found, nullptr) << button.toStdString();
        QTest::keyClick(found, Qt::Key_Space);
        settle();
    }
    void press(const QString& button) { press(*view, button); }
    void settle() {
        world.time.run();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QDialog* sheet() const {
        for (auto* dialog : view->findChildren<QDialog*>())
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    }
    void type(Qt::Key key) {
        QTest::keyClick(sheet(), key);
        settle();
    }
    bool shows(const QString& text) const { return shownTexts(*view).contains(text); }
    QStringList profileNames() const {
        QStringList names;
        for (const TapProfile& profile : store.profiles.get())
            names << profile.name;
        return names;
    }
    QString inPicker() const { return view->findChild<QComboBox*>()->currentText(); }
    std::size_t bindingCount() const { return store.activeProfile()->bindings.size(); }
    int rowCount() const {
        int count = 0;
        for (const auto* button : view->findChildren<QPushButton*>())
            count += button->isVisible() && button->text() == u"Edit"_s;
        return count;
    }
};

TEST_F(TapPage, ShowsTheStoreWithoutChangingIt) {
    const auto before = platform::readRegularFile(world.defaults.path()).bytes;
    EXPECT_EQ(inPicker(), u"Default"_s);
    EXPECT_EQ(rowCount(), 10);
    EXPECT_NE(shownButton(*view, u"Edit Left 2"_s), nullptr);
    EXPECT_EQ(shownButton(*view, u"Edit Left 2"_s)->accessibleDescription(),
              u"No Action, 1 sample  •  match radius ≈ 0.10000"_s);
    EXPECT_FALSE(shows(u"No tap bindings yet"_s));
    settle();
    EXPECT_EQ(platform::readRegularFile(world.defaults.path()).bytes, before);
}

TEST_F(TapPage, AnEmptyProfileOffersTheDefaultLayoutAndAnUnrecordedOneSaysSo) {
    const QString notice = u"Bindings exist but none are recorded yet — taps won't trigger any "
                           u"action until you record at least one position."_s;
    store.clearAllBindings();
    settle();
    EXPECT_TRUE(shows(u"No tap bindings yet"_s));
    EXPECT_FALSE(shows(notice));
    store.add({.id = QUuid::createUuid(), .name = u"Later"_s, .appName = u"firefox"_s});
    settle();
    EXPECT_TRUE(shows(notice));
    EXPECT_EQ(shownButton(*view, u"Edit Later"_s)->accessibleDescription(),
              u"No Action → firefox, Not recorded — won't trigger"_s);
    store.clearAllBindings();
    settle();
    press(u"Use Default Layout (10 positions, 5 left + 5 right)"_s);
    EXPECT_EQ(rowCount(), 10);
    EXPECT_FALSE(shows(notice));
    EXPECT_FALSE(shows(u"No tap bindings yet"_s));
}

TEST_F(TapPage, ANewProfileNeedsAName) {
    press(u"New Profile"_s);
    auto* field = sheet()->findChild<QLineEdit*>();
    for (const auto& [text, allowed] :
         {std::pair(u""_s, false), {u" \t "_s, false}, {u" Work "_s, true}}) {
        field->setText(text);
        EXPECT_EQ(shownButton(*sheet(), u"Create"_s)->isEnabled(), allowed);
    }
    field->clear();
    type(Qt::Key_Return);
    EXPECT_EQ(profileNames(), QStringList(u"Default"_s)) << "nothing to create";
    type(Qt::Key_Escape);
    EXPECT_EQ(sheet(), nullptr);

    press(u"New Profile"_s);
    field = sheet()->findChild<QLineEdit*>();
    EXPECT_EQ(field->text(), QString()) << "what was typed before is gone";
    QTest::keyClicks(field, u"<b>Work</b> && %1"_s);
    QTest::keyClick(field, Qt::Key_Return);
    settle();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(profileNames(), QStringList({u"Default"_s, u"<b>Work</b> && %1"_s}));
    EXPECT_EQ(inPicker(), u"<b>Work</b> && %1"_s);

    auto* picker = view->findChild<QComboBox*>();
    QTest::keyClick(picker, Qt::Key_Up);
    settle();
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
    press(*sheet(), u"Save"_s);
    EXPECT_EQ(profileNames(), QStringList({u"Default"_s, u"Mine"_s}));

    press(u"Delete profile"_s);
    store.switchTo(store.profiles.get().back().id);
    settle();
    press(*sheet(), u"Delete Profile"_s);
    EXPECT_EQ(profileNames(), QStringList(u"Mine"_s));
}

TEST_F(TapPage, WhatCannotBeUndoneIsAskedForFirst) {
    store.createProfile(u"Only"_s);
    store.removeProfile(store.profiles.get().front().id);
    settle();
    struct Row {
        QString button;
        QString title;
        QString confirm;
    };
    for (const auto& [button, title, confirm] :
         {Row{u"Clear All Bindings"_s, u"Clear all bindings in this profile?"_s, u"Delete All"_s},
          Row{u"Delete profile"_s, u"Delete this profile?"_s, u"Delete Profile"_s}}) {
        const auto before = store.profiles.get();
        for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
            press(button);
            EXPECT_TRUE(shownTexts(*sheet()).contains(title));
            type(key);
            EXPECT_EQ(sheet(), nullptr);
            EXPECT_EQ(store.profiles.get(), before);
        }
        press(button);
        press(*sheet(), confirm);
        EXPECT_NE(store.profiles.get(), before);
    }
    EXPECT_EQ(profileNames(), QStringList(u"Default"_s));
    EXPECT_EQ(rowCount(), 10);
    store.clearAllBindings();
    settle();
    press(u"Reset to Default Layout (10 positions)"_s);
    EXPECT_EQ(sheet(), nullptr) << "this one does not ask";
    EXPECT_EQ(rowCount(), 10);
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
    ASSERT_NE(sheet(), nullptr);
    store.switchTo(store.profiles.get().front().id);
    settle();
    ASSERT_NE(sheet(), nullptr) << "a new binding goes to whichever profile is active";
    press(*sheet(), u"Save"_s);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(bindingCount(), 11U);
    EXPECT_EQ(rowCount(), 11);

    press(u"Edit Left 2"_s);
    press(*sheet(), u"Delete"_s);
    EXPECT_EQ(rowCount(), 10);
    EXPECT_EQ(shownButton(*view, u"Edit Left 2"_s), nullptr);
}

TEST_F(TapPage, ExportsWhatWasThereWhenItWasAskedFor) {
    store.renameProfile(store.activeProfileId, u"a/b:c\\d"_s);
    settle();
    press(u"Export this profile to a file you can share"_s);
    EXPECT_EQ(dialogs.request.proposedName, u"Brimlow-a-b-c-d.json"_s);
    EXPECT_EQ(dialogs.request.contentType, u"application/json"_s);
    press(u"Export this profile to a file you can share"_s);
    EXPECT_EQ(dialogs.asked, 1) << "its dialog is open";
    store.clearAllBindings();
    const QString path = world.folder.filePath(u"shared.json"_s);
    dialogs.answer({.path = path, .error = {}});
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    const auto mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(status.st_mode & 0777, 0666 & ~mask) << "others may read it";

    press(u"Import a profile from a shared file"_s);
    dialogs.answer({.path = path, .error = {}});
    settle();
    EXPECT_EQ(rowCount(), 10);

    for (const auto& answer : {FileDialogs::Answer{},
                               {.path = {}, .error = u"No."_s},
                               {.path = u"/proc/x"_s, .error = {}}}) {
        world.log.take();
        press(u"Export this profile to a file you can share"_s);
        dialogs.answer(answer);
        settle();
        EXPECT_EQ(sheet(), nullptr) << "the user hears nothing";
        EXPECT_EQ(world.log.take(platform::Stream::error).size(), answer.path.isEmpty() ? 0 : 1);
    }
}

TEST_F(TapPage, ImportsEachFileAsANewProfileOrSaysWhyNot) {
    const QString good = world.folder.filePath(u"good.json"_s);
    const QString bad = world.folder.filePath(u"bad.json"_s);
    QFile file(good);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(*store.exportActiveProfileData());
    file.close();
    ASSERT_TRUE(QFile(bad).open(QIODevice::WriteOnly));
    for (const auto& name : {u"Default 2"_s, u"Default 3"_s}) {
        press(u"Import a profile from a shared file"_s);
        dialogs.answer({.path = good, .error = {}});
        settle();
        EXPECT_EQ(sheet(), nullptr);
        EXPECT_EQ(inPicker(), name);
    }
    struct Row {
        FileDialogs::Answer answer;
        QString message;
    };
    for (const auto& [answer, message] :
         {Row{{.path = {}, .error = u"It is gone."_s}, u"It is gone."_s},
          Row{{.path = u"/nowhere"_s, .error = {}}, u"Couldn't read that file."_s},
          Row{{.path = bad, .error = {}}, u"This file couldn't be read as a Brimlow profile."_s}}) {
        press(u"Import a profile from a shared file"_s);
        dialogs.answer(answer);
        settle();
        ASSERT_NE(sheet(), nullptr);
        EXPECT_EQ(shownTexts(*sheet()), QStringList({u"Import failed"_s, message}));
        type(Qt::Key_Return);
        EXPECT_EQ(sheet(), nullptr);
    }
    press(u"Import a profile from a shared file"_s);
    dialogs.answer({});
    EXPECT_EQ(store.profiles->size(), 3U);
}

} // namespace
} // namespace brimlow::test
