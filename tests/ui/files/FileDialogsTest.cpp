#include "tests/support/Printing.h"
#include "tests/ui/files/FakeFileChooser.h"
#include "tools/desktop/PrivateBus.h"
#include "ui/files/DesktopFileDialogs.h"
#include "ui/files/FileNames.h"
#include "ui/files/PortalFilter.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace brimlow {
namespace {

using namespace Qt::StringLiterals;

TEST(FileNames, AreOnesThatCanBeStored) {
    using Row = std::pair<QString, QString>; // the name, and as it is stored
    const auto times = [](int count, const QString& text) { return text.repeated(count); };
    const QString family = u"👨‍👩‍👧"_s; // 18 bytes, one character
    for (const auto& [name, stored] :
         {Row(u"Brimlow-a \"b\" 100% .c.json"_s, u"Brimlow-a \"b\" 100% .c.json"_s),
          Row(u"a\0b.json"_s, u"ab.json"_s),
          Row(times(250, u"a"_s) + u".json"_s, times(250, u"a"_s) + u".json"_s),
          Row(times(126, u"é"_s) + u".json"_s, times(125, u"é"_s) + u".json"_s),
          Row(times(14, family) + u".json"_s, times(13, family) + u".json"_s),
          Row(u'.' + times(300, u"a"_s), u'.' + times(254, u"a"_s)),
          Row(u"a."_s + times(300, u"b"_s), u"a."_s + times(253, u"b"_s))})
        EXPECT_EQ(storableFileName(name), stored);
}

/// A window that asks for files.
class FileDialogsTest : public testing::Test {
protected:
    FileDialogsTest() { window->show(); }

    void ask(FileTask task, const QString& name = u"Brimlow-a.json"_s) {
        answers.clear();
        const FileDialogs::Request request{window.get(), u"Title"_s, u"application/json"_s, name};
        const auto keep = [this](const FileDialogs::Answer& answer) {
            EXPECT_FALSE(QApplication::activeModalWidget()) << "the window still waits";
            answers.push_back(answer);
        };
        if (task == FileTask::save)
            dialogs->save(request, keep);
        else
            dialogs->open(request, keep);
    }
    static bool soon(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 5000); }
    bool isAnswered() {
        return soon([&] { return !answers.empty(); });
    }
    QFileDialog* qtDialog() const { return window->findChild<QFileDialog*>(); }
    bool falls() {
        return soon([&] { return qtDialog() && qtDialog()->isVisible(); });
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::unique_ptr<DesktopFileDialogs> dialogs = std::make_unique<DesktopFileDialogs>(
        QDBusConnection::connectToBus(u"unix:path=/nowhere"_s, u"nowhere"_s));
    std::vector<FileDialogs::Answer> answers;
};

TEST_F(FileDialogsTest, WithoutABusAreQts) {
    const QTemporaryDir folder;
    ask(FileTask::save, u"a \"b\" 100%.json"_s);
    EXPECT_FALSE(qtDialog()) << "has waited";
    ASSERT_TRUE(falls());
    EXPECT_EQ(qtDialog()->windowModality(), Qt::WindowModal);
    EXPECT_EQ(qtDialog()->selectedFiles().value(0).section(u'/', -1), u"a 'b' 100%.json");
    qtDialog()->setDirectory(folder.path());
    auto* name = qtDialog()->findChild<QLineEdit*>();
    name->setText(u"c"_s);
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(answers[0].path, folder.filePath(u"c.json"_s));
    EXPECT_TRUE(soon([&] { return !qtDialog(); })) << "stays";

    ask(FileTask::open);
    ASSERT_TRUE(falls());
    EXPECT_EQ(qtDialog()->fileMode(), QFileDialog::ExistingFile);
    QTest::keyClick(qtDialog(), Qt::Key_Escape);
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(answers[0].path + answers[0].error, QString());
}

TEST_F(FileDialogsTest, OfQtGoWithTheirParentAndTheirMaker) {
    ask(FileTask::save);
    ASSERT_TRUE(falls());
    dialogs.reset();
    EXPECT_FALSE(qtDialog());
    dialogs = std::make_unique<DesktopFileDialogs>(QDBusConnection(u"no such bus"_s));
    ask(FileTask::save);
    ASSERT_TRUE(falls());
    window.reset();
    QTest::qWait(50);
    EXPECT_TRUE(answers.empty());
}

/// The same on a desktop with a portal.
class PortalFileDialogs : public FileDialogsTest {
protected:
    void SetUp() override {
        ASSERT_EQ(bus.start(QProcessEnvironment::systemEnvironment()), QString());
        portal.emplace(QDBusConnection::connectToBus(bus.address(), u"portal"_s));
        dialogs = std::make_unique<DesktopFileDialogs>(
            QDBusConnection::connectToBus(bus.address(), u"application"_s));
    }
    void TearDown() override {
        dialogs.reset();
        portal.reset();
        for (const QString& name : {u"portal"_s, u"application"_s})
            QDBusConnection::disconnectFromBus(name);
    }

    /// Until the portal's dialog is there.
    bool opens(FileTask task, const QString& name = u"Brimlow-a.json"_s) {
        portal->call = {};
        ask(task, name);
        const bool came = soon([&] { return !portal->call.member().isEmpty(); });
        QTest::qWait(50); // for its reply
        return came;
    }

    QTemporaryDir folder;
    desktop::PrivateBus bus{folder.path()};
    std::optional<FakeFileChooser> portal;
};

TEST_F(PortalFileDialogs, AreAskedForWhatTheRequestSays) {
    ASSERT_TRUE(opens(FileTask::save, QString(300, u'a') + u".json"_s));
    EXPECT_EQ(portal->call.member(), u"SaveFile");
    EXPECT_EQ(portal->call.arguments().value(0), QString()) << "is not on X11";
    const auto options = portal->options();
    EXPECT_EQ(options[u"current_name"_s].toString(), QString(250, u'a') + u".json"_s);
    EXPECT_EQ(options[u"modal"_s], true);
    const auto filters = qdbus_cast<QList<PortalFilter>>(options[u"filters"_s]);
    ASSERT_EQ(filters.value(0).rules.size(), 2);
    EXPECT_EQ(filters[0].rules[0].pattern, u"application/json");
    EXPECT_EQ(filters[0].rules[1].pattern, u"*.json");
    EXPECT_EQ(filters[0].rules[1].kind, PortalFilter::Kind::glob);
    EXPECT_TRUE(QApplication::activeModalWidget()) << "the window does not wait";

    portal->respond(0, {u"file:///a%20%25%22b.json"_s});
    portal->respond(1);
    ASSERT_TRUE(isAnswered());
    QTest::qWait(50);
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0].path, u"/a %\"b.json");
    EXPECT_EQ(answers[0].error, QString());
    EXPECT_FALSE(qtDialog());
    EXPECT_EQ(portal->closed, QString());
}

TEST_F(PortalFileDialogs, AnswerWithWhatCame) {
    portal->namesRequestsItself = true;
    struct Row {
        uint code;
        QStringList uris;
        QString path;
        bool fails;
    };
    for (const auto& [code, uris, path, fails] :
         {Row{0, {u"file:///a"_s, u"file:///b"_s}, u"/a"_s, false},
          Row{2, {u"file:///a"_s}, {}, false}, Row{0, {}, {}, true},
          Row{0, {u"sftp://host/a"_s}, {}, true}}) {
        ASSERT_TRUE(opens(FileTask::open));
        EXPECT_EQ(portal->call.member(), u"OpenFile");
        portal->respond(code, uris);
        ASSERT_TRUE(isAnswered());
        EXPECT_EQ(answers[0].path, path);
        EXPECT_EQ(answers[0].error.isEmpty(), !fails) << code;
    }
}

TEST_F(PortalFileDialogs, FailWhereThePortalOrTheBusGoes) {
    for (const bool busGoes : {false, true}) {
        portal.emplace(QDBusConnection(u"portal"_s));
        ASSERT_TRUE(opens(FileTask::open));
        if (busGoes)
            bus.stop();
        else
            portal->vanish();
        ASSERT_TRUE(isAnswered());
        EXPECT_FALSE(answers[0].error.isEmpty());
    }
}

TEST_F(PortalFileDialogs, AreClosedWithTheirParentAndTheirMaker) {
    ASSERT_TRUE(opens(FileTask::open));
    dialogs.reset();
    EXPECT_TRUE(soon([&] { return portal->closed == portal->request(); }));
    dialogs = std::make_unique<DesktopFileDialogs>(QDBusConnection(u"application"_s));
    for (const bool silent : {false, true}) { // the latter before it has replied
        portal->silent = silent;
        ASSERT_TRUE(opens(FileTask::open));
        window = std::make_unique<QWidget>();
        EXPECT_TRUE(soon([&] { return portal->closed == portal->request(); })) << silent;
        portal->respond(0, {u"file:///a"_s});
        QTest::qWait(50);
        EXPECT_TRUE(answers.empty());
    }
}

TEST_F(PortalFileDialogs, AreQtsWhereThePortalShowsNone) {
    portal->silent = true;
    ASSERT_TRUE(opens(FileTask::open));
    portal.reset();
    QDBusConnection::disconnectFromBus(u"portal"_s);
    EXPECT_TRUE(falls()) << "it died before it replied";
    delete qtDialog();

    ask(FileTask::open);
    EXPECT_TRUE(falls()) << "there is none";
    EXPECT_TRUE(answers.empty());
}

} // namespace
} // namespace brimlow
