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

/// What the kernel would tell of processes: one folder for each.
class ProcFolder {
public:
    QString file(pid_t process, const QString& name) const {
        const QString path = folder_.filePath(QString::number(process) + u'/' + name);
        QDir().mkpath(QFileInfo(path).path());
        return path;
    }
    void write(pid_t process, const QString& name, const QByteArray& bytes) const {
        QFile out(file(process, name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(bytes);
    }
    void runs(const QString& program) const {
        ASSERT_TRUE(QFile::link(program, file(pid, u"exe"_s)));
    }
    /// Whose a window of the process is that tells nothing but its class.
    QString owner(const QString& className = u"Class"_s) const;

private:
    QTemporaryDir folder_;
};

DesktopEntry entry(const QString& id, const QString& program = {}, const QString& wmClass = {}) {
    const QString file = u"/usr/share/applications/"_s + QString(id).replace(u'-', u'/');
    return {.id = id, .program = program, .startupWmClass = wmClass, .file = file + u".desktop"_s};
}

const ApplicationCatalogue& installed() {
    static const ApplicationCatalogue catalogue(
        {DesktopEntry{.id = u"helper"_s, .startupWmClass = u"XTerm"_s, .listed = false},
         entry(u"org.example.Editor"_s, u"/usr/bin/editor"_s),
         entry(u"debian-xterm"_s, u"/usr/bin/xterm"_s, u"XTerm"_s),
         entry(u"web-app"_s, u"/usr/bin/browser"_s, u"crx_mail"_s),
         entry(u"browser"_s, u"/usr/bin/browser"_s, u"Browser"_s), entry(u"Calc"_s),
         entry(u"org.example.Term"_s), entry(u"foo-bar"_s), entry(u"mail_client"_s),
         entry(u"org.example.Packed"_s)},
        {});
    return catalogue;
}

QString ProcFolder::owner(const QString& className) const {
    return applicationIdOf({{}, {}, className, pid}, installed(), folder_.path());
}

TEST(WindowIdentity, TakesWhatTheWindowTellsInOrder) {
    const struct {
        const char* about;
        WindowEvidence evidence;
        QString expected;
    } rows[] = {
        {"the stated id first", {u"BROWSER"_s, u"xterm"_s, u"XTerm"_s}, u"browser"_s},
        {"an unknown one yields", {u"x.y"_s, u"a"_s, u"XTerm"_s}, u"debian-xterm"_s},
        {"the instance before the class", {{}, u"crx_mail"_s, u"Browser"_s}, u"web-app"_s},
        {"claims keep their letters", {{}, u"a"_s, u"xterm"_s}, u"xterm"_s},
        {"a file named as the instance", {{}, u"foo-bar"_s, u"Calc"_s}, u"foo-bar"_s},
        {"a file named as the class", {{}, u"main"_s, u"CALC"_s}, u"Calc"_s},
        {"unknown: the stated id", {u"x.y"_s, u"inst"_s, u"Class"_s}, u"x.y"_s},
        {"unknown: the class", {{}, u"inst"_s, u"Class"_s}, u"Class"_s},
        {"unknown: the instance", {{}, u"inst"_s, {}}, u"inst"_s},
        {"nothing at all", {}, u""_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(applicationIdOf(row.evidence, installed()), row.expected) << row.about;
}

QByteArray unit(const QByteArray& name) {
    return "0::/user.slice/user-1000.slice/user@1000.service/app.slice/" + name + '\n';
}

QByteArray launchedBy(const char* file, const char* process) {
    return "HOME=/\0GIO_LAUNCHED_DESKTOP_FILE_PID="_ba + process
           + "\0XGIO_LAUNCHED_DESKTOP_FILE=/x\0GIO_LAUNCHED_DESKTOP_FILE="_ba + file + '\0';
}

const QByteArray status = "Name:\tx\\nPPid:\t1\nPid:\t4711\nPPid:\t4000\nUid:\t0\n";
constexpr const char* installedFile = "/usr/share/applications/foo/bar.desktop";
const QString none = u"Class"_s; // the process must not count
const QString editor = u"org.example.Editor"_s;

TEST(WindowIdentity, AsksTheProcessWhereTheWindowDoesNotTell) {
    const QString fooBar = u"foo-bar"_s;
    const QString snap = u"mail_client"_s;
    const QString packed = u"org.example.Packed"_s;
    const struct {
        QString file;
        QByteArray bytes;
        QString expected;
    } rows[] = {
        {u"environ"_s, launchedBy(installedFile, "4711"), fooBar},
        {u"environ"_s, launchedBy("/root/.local/foo-bar.desktop", "4711"), fooBar}, // elsewhere now
        {u"environ"_s, launchedBy(installedFile, "4000"), none},                    // inherited
        {u"environ"_s, "BAMF_DESKTOP_FILE_HINT=/snapd/mail_client.desktop\0"_ba, snap},
        {u"cgroup"_s, unit("app-gnome-foo\\x2dbar-4711.scope"), fooBar},
        {u"cgroup"_s, unit("app-kde-org.example.Editor@9f.service"), editor},
        {u"cgroup"_s, "12:pids:/user.slice\n1:name=systemd:/app-Calc-1.scope\n0::/\n", u"Calc"_s},
        {u"cgroup"_s, unit("app-org.example.Editor-1.scope/worker"), editor},
        {u"cgroup"_s, unit("app-.scope"), none},
        {u"cgroup"_s, unit("snap.mail.client-0aa1b2c3-0123-4567-89ab-0123456789ab.scope"), snap},
        {u"attr/current"_s, "snap.mail.client (enforce)\n", snap},
        {u"root/.flatpak-info"_s,
         "[Instance]\nname=browser\n[Application]\nname=org.example.Packed\n[Context]\nname=x",
         packed},
    };
    for (const auto& row : rows) {
        const ProcFolder proc;
        proc.write(pid, u"status"_s, status);
        proc.write(parent, u"cgroup"_s, unit("session.scope"));
        proc.write(pid, row.file, row.bytes);
        EXPECT_EQ(proc.owner(), row.expected) << row.bytes.toStdString();
        EXPECT_EQ(proc.owner(u"XTerm"_s), u"debian-xterm"_s);
        proc.runs(u"/usr/bin/editor (deleted)"_s); // it has been updated meanwhile
        EXPECT_EQ(proc.owner(), row.expected == none ? editor : row.expected);
    }
}

TEST(WindowIdentity, AScopeTellsOnlyOfTheProcessThatItWasMadeFor) {
    const ProcFolder proc;
    proc.write(pid, u"status"_s, status);
    proc.write(pid, u"cgroup"_s, unit("app-org.example.Editor-4711.scope"));
    EXPECT_EQ(proc.owner(), none) << "the parent's is not known";
    proc.write(parent, u"cgroup"_s, unit("app-org.example.Term-4000.scope"));
    EXPECT_EQ(proc.owner(), editor);
    proc.write(pid, u"cgroup"_s, unit("app-org.example.Term-4000.scope"));
    EXPECT_EQ(proc.owner(), none) << "the terminal's";
    proc.runs(u"/usr/bin/browser"_s);
    EXPECT_EQ(proc.owner(), none) << "two applications run it";
}

TEST(WindowIdentity, TakesNonsenseAndFilesThatAreNoneAsNoEvidence) {
    const ProcFolder proc;
    EXPECT_EQ(proc.owner(), none) << "no such process";
    proc.runs(u"/usr/bin/editor"_s);
    proc.write(pid, u"environ"_s, QByteArray(300'000, '='));
    proc.write(pid, u"cgroup"_s, QByteArray("\xff\xfe/\0\\x2/\\xzz.scope", 18));
    proc.write(pid, u"attr/current"_s, QByteArray(200'000, '\xc3'));
    for (const auto& name : {u"status"_s, u"root/.flatpak-info"_s})
        ASSERT_EQ(mkfifo(qPrintable(proc.file(pid, name)), 0600), 0);
    EXPECT_EQ(proc.owner(), editor);
}

TEST(WindowIdentity, ReadsTheKernelsOwnFiles) {
    const auto own = QFile::symLinkTarget(u"/proc/self/exe"_s);
    const ApplicationCatalogue catalogue({entry(u"self"_s, own)}, {});
    EXPECT_EQ(applicationIdOf({{}, {}, {}, getpid()}, catalogue), u"self"_s);
}

} // namespace
} // namespace brimlow::platform
