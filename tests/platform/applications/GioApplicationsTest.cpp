#include "platform/linux/applications/GioApplications.h"

#include "tests/platform/applications/EntryFolder.h"
#include "tests/support/Speed.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#ifdef __SANITIZE_THREAD__
// GLib's own locks are futexes, which the sanitizer does not see.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions() {
    return "race:libglib-2.0.so\nrace:libgobject-2.0.so\nrace:libgio-2.0.so\n";
}
#endif

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

/// A user's and a system's data folder.
class Entries : public testing::Test {
protected:
    QString user(const QString& file) const {
        return world.folder.filePath(u"user/applications/"_s + file);
    }
    QString system(const QString& file) const {
        return world.folder.filePath(u"system/applications/"_s + file);
    }
    QStringList shown(const QString& folder) {
        return applications.catalogue()->bundles().contents(folder);
    }
    QStringList shown() { return shown(u"/Applications"_s); }

    TestPlatform world;
    GioApplications applications{
        {{world.folder.filePath(u"user"_s), true}, {world.folder.filePath(u"system"_s), false}},
        std::chrono::milliseconds(0)};
};

TEST_F(Entries, SaysWhatEachEntrySays) {
    qputenv("LC_ALL", "ru_RU.UTF-8");
    writeFile(system(u"kde/org.Edit.desktop"_s),
              entryText("Edit / View", "/bin/ls --color %U",
                        "Name[ru]=Правка\nIcon=edit\nStartupWMClass=EditWindow\n"));
    writeFile(user(u"nested.desktop"_s), entryText("N", "env A=1 ls", "NoDisplay=true\n"));
    writeFile(user(u"foreign.desktop"_s), entryText("F", "python3 x", "OnlyShowIn=Elsewhere;\n"));
    const auto catalogue = applications.catalogue();

    const auto* edit = catalogue->find(u"kde-org.Edit"_s);
    ASSERT_TRUE(edit);
    EXPECT_EQ(*edit, (DesktopEntry{u"kde-org.Edit"_s, u"Правка"_s, u"Edit / View"_s, u"ls"_s,
                                   QFileInfo(u"/bin/ls"_s).canonicalFilePath(), u"EditWindow"_s,
                                   u"edit"_s, system(u"kde/org.Edit.desktop"_s), true, false}));
    for (const QString& id : {u"nested"_s, u"foreign"_s}) {
        EXPECT_FALSE(catalogue->find(id)->listed);
        EXPECT_TRUE(catalogue->find(id)->userOwned);
        EXPECT_EQ(catalogue->find(id)->program, QString());
    }
    EXPECT_EQ(shown(), QStringList{u"Edit : View.app"_s});
    EXPECT_EQ(world.log.take(), QStringList());
}

TEST_F(Entries, SkipsBrokenFilesWithOneLineForEachVersion) {
    const QByteArray head = "[Desktop Entry]\nType=Application\n";
    const struct {
        QByteArray text;
        const char* reason; // null: silently
    } rows[] = {
        {"", "it is no desktop entry"},
        {"\x7f"
         "ELF\x01\0\0\xff\xfe",
         "it is no desktop entry"},
        {QByteArray(2'000'000, '#'), "it is larger than 1 MB"},
        {"[Other]\na=b\n" + head + "Name=x\nExec=ls\n", "it is no desktop entry"},
        {"[Desktop Entry]\nName=x\nExec=ls\n", "it has no type"},
        {head + "Exec=ls\n", "it has no name"},
        {head + "Name=\xff\xfe\nExec=ls\n", "it has no name"},
        {head + "Name=x\n", "it has no Exec line"},
        {entryText("x", "ls \"a"), "its Exec line cannot be understood"},
        {entryText("x", "no-such-program-here"), "there is no program \"no-such-program-here\""},
        {entryText("x", "ls", "TryExec=no-such-program-here\n"), nullptr},
        {"[Desktop Entry]\nHidden=true\n", nullptr},
        {"[Desktop Entry]\nType=Link\nName=x\nURL=http://localhost\n", nullptr},
    };
    const QString file = user(u"x.desktop"_s);
    writeFile(system(u"x.desktop"_s), entryText("Masked", "ls"));
    for (const auto& row : rows) {
        QFile::remove(file);
        writeFile(file, row.text);
        const QString line = u"Brimlow: the desktop entry \"%1\" is skipped: %2"_s.arg(
            file, QString::fromLatin1(row.reason));
        EXPECT_EQ(shown(), QStringList()) << row.text.left(80).toStdString();
        EXPECT_EQ(applications.catalogue()->find(u"x"_s), nullptr);
        EXPECT_EQ(world.log.take(), row.reason ? QStringList{line} : QStringList())
            << row.text.left(80).toStdString();
    }
}

TEST_F(Entries, SkipsWhatIsNoFile) {
    const std::string folder = user({}).toStdString();
    writeFile(user(u"below/right.desktop"_s), entryText("Right", "ls"));
    writeFile(user(u"two\nlines.desktop"_s), {});
    ASSERT_EQ(mkfifo((folder + "pipe.desktop").c_str(), 0600), 0);
    ASSERT_EQ(symlink("nowhere", (folder + "dangling.desktop").c_str()), 0);
    ASSERT_EQ(symlink("..", (folder + "below/loop").c_str()), 0);
    ASSERT_EQ(symlink("here", (folder + ".#locked.desktop").c_str()), 0);
    EXPECT_EQ(shown(QDir::homePath() + u"/Applications"_s), QStringList{u"Right.app"_s});
    EXPECT_TRUE(applications.catalogue()->find(u"below-right"_s));
    const QString line = u"Brimlow: the desktop entry \"%1\" is skipped: %2"_s;
    EXPECT_EQ(world.log.take(),
              QStringList({line.arg(user(u"dangling.desktop"_s), u"the link leads nowhere"_s),
                           line.arg(user(u"pipe.desktop"_s), u"it is no file"_s),
                           line.arg(user(u"two lines.desktop"_s), u"it is no desktop entry"_s)}));
}

TEST_F(Entries, NoticesWhatComesChangesAndGoes) {
    writeFile(system(u"a.desktop"_s), entryText("First", "ls"));
    const auto first = applications.catalogue();
    EXPECT_EQ(applications.catalogue(), first);

    writeFile(system(u"a.desktop"_s), entryText("Again", "ls"));
    writeFile(system(u"deep/er/b.desktop"_s), entryText("Below", "ls"));
    writeFile(user(u"a.desktop"_s), entryText("Mine", "ls"));
    EXPECT_EQ(shown(), QStringList({u"Again.app"_s, u"Below.app"_s}));
    EXPECT_EQ(applications.catalogue()->find(u"a"_s)->name, u"Mine"_s);
    EXPECT_EQ(first->find(u"a"_s)->name, u"First"_s);
    QFile::remove(user(u"a.desktop"_s));
    QFile::remove(system(u"deep/er/b.desktop"_s));
    EXPECT_EQ(shown(), QStringList{u"Again.app"_s});
    EXPECT_EQ(applications.catalogue()->find(u"a"_s)->name, u"Again"_s);
}

TEST_F(Entries, NoticesThatAProgramHasCome) {
    const QString program = world.folder.filePath(u"bin/program"_s);
    writeFile(system(u"tried.desktop"_s), entryText("Tried", "ls", "TryExec=" + program.toUtf8()));
    writeFile(system(u"run.desktop"_s), entryText("Run", program.toUtf8()));
    writeFile(program, "#!/bin/sh\n");
    EXPECT_EQ(shown(), QStringList()); // it cannot be run
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(shown(), QStringList({u"Run.app"_s, u"Tried.app"_s}));
    EXPECT_EQ(world.log.take().size(), 1);
}

TEST_F(Entries, AnswersFromSeveralThreadsWhileFilesChange) {
    writeFile(system(u"broken.desktop"_s), entryText("x", "\""));
    writeFile(system(u"good.desktop"_s), entryText("x", "ls"));
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < 20; ++round) {
                writeFile(user(QString::number(thread) + u".desktop"_s), entryText("y", "ls"));
                EXPECT_EQ(applications.catalogue()->find(u"good"_s)->name, u"x"_s);
            }
        });
    }
    threads.clear();
    EXPECT_EQ(applications.catalogue()->find(u"3"_s)->name, u"y"_s);
    EXPECT_EQ(world.log.take().filter(u"broken.desktop"_s).size(), 1);
}

TEST_F(Entries, ListsFiveHundredAgainQuickly) {
    QByteArray translations;
    for (const char* language : {"ar", "be", "cs", "de", "el", "fr", "it", "ja", "pl", "ru", "zh"})
        translations += QByteArray("Name[") + language + "]=Имя\nComment[" + language + "]=…\n";
    for (int i = 0; i < 500; ++i)
        writeFile(system(u"org.example.%1.desktop"_s.arg(i)),
                  entryText("Application " + QByteArray::number(i), "ls %U", translations));
    EXPECT_EQ(shown().size(), 500);
    for (const char* what : {"unchanged", "one changed"}) {
        const double before = processorMilliseconds();
        EXPECT_EQ(shown().size(), 500);
        const double passed = processorMilliseconds() - before;
        std::printf("%s: %.2f ms\n", what, passed);
        EXPECT_LE(passed, 50 * slowdown) << what;
        writeFile(system(u"org.example.7.desktop"_s), entryText("Another", "ls"));
    }
}

} // namespace
} // namespace brimlow::test
