#include "platform/linux/identity/WindowIdentity.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>

using namespace Qt::StringLiterals;

namespace brimlow::platform {
namespace {

constexpr pid_t pid = 4711;
constexpr pid_t parent = 4000;

// As the kernel lays it out: one folder for each process, one of them with a parent.
class ProcFolder {
public:
    void write(pid_t process, const QString& name, const QByteArray& bytes) {
        QFile file(path(process, name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void link(pid_t process, const QString& name, const QString& target) {
        ASSERT_TRUE(QFile::link(target, path(process, name)));
    }
    void pipe(pid_t process, const QString& name) {
        ASSERT_EQ(mkfifo(QFile::encodeName(path(process, name)).constData(), 0600), 0);
    }
    QString path() const { return folder_.path(); }

private:
    QString path(pid_t process, const QString& name) const {
        const QString file = folder_.filePath(QString::number(process) + u'/' + name);
        QDir().mkpath(QFileInfo(file).path());
        return file;
    }

    QTemporaryDir folder_;
};

DesktopEntry entry(const QString& id, const QString& program = {}, const QString& wmClass = {}) {
    DesktopEntry result;
    result.id = id;
    result.program = program;
    result.startupWmClass = wmClass;
    result.file = u"/usr/share/applications/"_s + id + u".desktop"_s;
    return result;
}

const ApplicationCatalogue& installed() {
    static const ApplicationCatalogue catalogue(
        {entry(u"org.example.Editor"_s, u"/usr/bin/editor"_s),
         entry(u"debian-xterm"_s, u"/usr/bin/xterm"_s, u"XTerm"_s),
         entry(u"web-app"_s, u"/usr/bin/browser"_s, u"crx_mail"_s),
         entry(u"browser"_s, u"/usr/bin/browser"_s, u"Browser"_s),
         entry(u"Calc"_s, u"/opt/calc/bin/calc"_s),
         entry(u"org.example.Term"_s, u"/usr/bin/term"_s), entry(u"foo-bar"_s, u"/usr/bin/foo"_s),
         entry(u"mail_client"_s), entry(u"org.example.Packed"_s)},
        u"/home/me"_s);
    return catalogue;
}

TEST(WindowIdentity, TakesWhatTheWindowTellsInOrder) {
    const struct {
        const char* about;
        WindowEvidence evidence;
        QString expected;
    } rows[] = {
        {"the stated id before the class", {u"browser"_s, u"xterm"_s, u"XTerm"_s}, u"browser"_s},
        {"the stated id in other letters",
         {u"ORG.Example.editor"_s, {}, {}},
         u"org.example.Editor"_s},
        {"an unknown stated id yields to the class",
         {u"x.y"_s, u"a"_s, u"XTerm"_s},
         u"debian-xterm"_s},
        {"a claimed class", {{}, u"renamed"_s, u"XTerm"_s}, u"debian-xterm"_s},
        {"the instance before the class", {{}, u"crx_mail"_s, u"Browser"_s}, u"web-app"_s},
        {"a claimed instance", {{}, u"crx_mail"_s, u"Other"_s}, u"web-app"_s},
        {"claims keep their letters", {{}, u"a"_s, u"xterm"_s}, u"xterm"_s},
        {"a file named as the instance", {{}, u"foo-bar"_s, u"Calc"_s}, u"foo-bar"_s},
        {"a file named as the class, in other letters", {{}, u"main"_s, u"CALC"_s}, u"Calc"_s},
        {"nothing known: the stated id", {u"x.y"_s, u"inst"_s, u"Class"_s}, u"x.y"_s},
        {"nothing known: the class", {{}, u"inst"_s, u"Class"_s}, u"Class"_s},
        {"nothing known: the instance", {{}, u"inst"_s, {}}, u"inst"_s},
        {"nothing at all", {}, u""_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(applicationIdOf(row.evidence, installed()), row.expected) << row.about;
}

struct ProcessRow {
    const char* about;
    std::map<QString, QByteArray> files; // of the process
    QByteArray parentUnit;
    QString program;
    QString expected; // `none` where the process must not count
};

QByteArray unit(const QByteArray& name) {
    return "0::/user.slice/user-1000.slice/user@1000.service/app.slice/" + name + '\n';
}

QByteArray launchedBy(const char* file, const char* process) {
    return "HOME=/\0GIO_LAUNCHED_DESKTOP_FILE_PID="_ba + process
           + "\0XGIO_LAUNCHED_DESKTOP_FILE=/x\0GIO_LAUNCHED_DESKTOP_FILE="_ba + file + '\0';
}

const QByteArray session = unit("session.scope");
const QByteArray terminal = unit("app-org.example.Term-4000.scope");
const QByteArray flatpakInfo = "[Instance]\nname=browser\n[Application]\nruntime=x\n"
                               "name=org.example.Packed\n[Context]\nname=browser\n";
constexpr const char* installedFile = "/usr/share/applications/foo-bar.desktop";

ProcessRow environment(const char* about, const QByteArray& variables, const QString& expected,
                       const QString& program = {}) {
    return {about, {{u"environ"_s, variables}}, {}, program, expected};
}
ProcessRow inUnit(const char* about, const QByteArray& groups, const QString& expected,
                  const QByteArray& parentUnit = session, const QString& program = {}) {
    return {about, {{u"cgroup"_s, groups}}, parentUnit, program, expected};
}
ProcessRow runs(const char* about, const QString& program, const QString& expected) {
    return {about, {}, {}, program, expected};
}

const QString none = u"Class"_s;
const QString editor = u"org.example.Editor"_s;
const QString fooBar = u"foo-bar"_s;

const ProcessRow processRows[] = {
    environment("started by GIO", launchedBy(installedFile, "4711"), fooBar),
    environment("the entry now elsewhere", launchedBy("/root/.local/foo-bar.desktop", "4711"),
                fooBar),
    environment("inherited from what GIO started", launchedBy(installedFile, "4000"), none),
    environment("an entry that is not installed", launchedBy("/x/evil.desktop", "4711"), none),
    environment("GIO before the program", launchedBy(installedFile, "4711"), fooBar,
                u"/usr/bin/editor"_s),
    environment(
        "a snap's hint",
        "BAMF_DESKTOP_FILE_HINT=/var/lib/snapd/desktop/applications/mail_client.desktop\0"_ba,
        u"mail_client"_s),
    environment("behind what is read of a file",
                QByteArray(133'120, 'x') + '\0' + launchedBy(installedFile, "4711"), none),
    inUnit("leads its scope", unit("app-org.example.Editor-4711.scope"), editor),
    inUnit("a launcher's scope, escaped", unit("app-gnome-foo\\x2dbar-4711.scope"), fooBar),
    inUnit("without the escape another id", unit("app-foo-bar-4711.scope"), none),
    inUnit("a service", unit("app-kde-org.example.Editor@9f.service"), editor),
    inUnit("a service started at login", unit("app-foo\\x2dbar@autostart.service"), fooBar),
    inUnit("version 1 beside version 2",
           "12:pids:/user.slice\n1:name=systemd:/app.slice/app-foo\\x2dbar-1.scope\n0::/\n",
           fooBar),
    inUnit("a group of its own within", unit("app-org.example.Editor-1.scope/worker"), editor),
    inUnit("in the scope of the terminal it was started from", terminal, none, terminal),
    inUnit("that scope does not hide its program", terminal, editor, terminal,
           u"/usr/bin/editor"_s),
    inUnit("a terminal's scope for one tab",
           unit("app-org.example.Term.slice/vte-spawn-1234.scope"), none),
    inUnit("the parent cannot be read", unit("app-org.example.Editor-4711.scope"), none, {}),
    inUnit("a broken unit", unit("app-.scope"), none),
    inUnit("a snap's scope", unit("snap.mail.client-0aa1b2c3-0123-4567-89ab-0123456789ab.scope"),
           u"mail_client"_s),
    {"a snap's label",
     {{u"attr/current"_s, "snap.mail.client (enforce)\n"}},
     {},
     {},
     u"mail_client"_s},
    {"another label", {{u"attr/current"_s, "unconfined\n"}}, {}, {}, none},
    {"a Flatpak sandbox",
     {{u"root/.flatpak-info"_s, flatpakInfo}},
     {},
     {},
     u"org.example.Packed"_s},
    runs("its program", u"/opt/calc/bin/calc"_s, u"Calc"_s),
    runs("its program, updated meanwhile", u"/usr/bin/editor (deleted)"_s, editor),
    runs("a program of two applications", u"/usr/bin/browser"_s, none),
    {"nonsense everywhere",
     {{u"environ"_s, QByteArray(300000, '=')},
      {u"cgroup"_s, QByteArray("\xff\xfe/\0\\x2/\\xzz.scope", 18)},
      {u"root/.flatpak-info"_s, QByteArray(200000, '[')},
      {u"attr/current"_s, QByteArray(200000, '\xc3')}},
     "\n::\n",
     u"x"_s,
     none},
};

TEST(WindowIdentity, AsksTheProcessWhereTheWindowDoesNotTell) {
    for (const auto& row : processRows) {
        ProcFolder proc;
        proc.write(pid, u"status"_s, "Name:\tx\\nPPid:\t1\nPid:\t4711\nPPid:\t4000\nUid:\t0\n");
        for (const auto& [name, bytes] : row.files)
            proc.write(pid, name, bytes);
        if (!row.parentUnit.isEmpty())
            proc.write(parent, u"cgroup"_s, row.parentUnit);
        if (!row.program.isEmpty())
            proc.link(pid, u"exe"_s, row.program);
        const WindowEvidence window{{}, u"inst"_s, u"Class"_s, pid};
        EXPECT_EQ(applicationIdOf(window, installed(), proc.path()), row.expected) << row.about;

        const WindowEvidence telling{{}, {}, u"XTerm"_s, pid};
        EXPECT_EQ(applicationIdOf(telling, installed(), proc.path()), u"debian-xterm"_s);
    }
}

TEST(WindowIdentity, TakesFilesThatAreNoneAsNoEvidence) {
    ProcFolder proc;
    proc.pipe(pid, u"root/.flatpak-info"_s);
    proc.pipe(pid, u"status"_s);
    proc.pipe(pid, u"environ"_s);
    proc.write(pid, u"cgroup/file"_s, {}); // a folder where a file should be
    proc.link(pid, u"exe"_s, u"/usr/bin/editor"_s);
    EXPECT_EQ(applicationIdOf({{}, {}, {}, pid}, installed(), proc.path()),
              u"org.example.Editor"_s);
    EXPECT_EQ(applicationIdOf({{}, {}, {}, pid + 1}, installed(), proc.path()), QString());
    EXPECT_EQ(applicationIdOf({{}, {}, {}, -1}, installed(), proc.path()), QString());
}

TEST(WindowIdentity, ReadsTheKernelsOwnFiles) {
    const auto own = QFile::symLinkTarget(u"/proc/self/exe"_s);
    const ApplicationCatalogue catalogue({entry(u"self"_s, own)}, {});
    EXPECT_EQ(applicationIdOf({{}, {}, {}, getpid()}, catalogue), u"self"_s);
}

} // namespace
} // namespace brimlow::platform
