// The helper as root, on folders that are not the system's, and the commands that do by hand what
// it does.

#include "platform/linux/access/CommandsByHand.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>
#include <unistd.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

/// What "unshare" says with these arguments.
std::string outputOf(const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"unshare"_s, arguments, QIODevice::ReadOnly);
    return process.waitForFinished() ? process.readAll().toStdString() : "(does not end)";
}

class AccessHelper : public testing::Test {
protected:
    void SetUp() override {
        if (!QFile::exists(u"/etc/udev"_s) || !QFile::exists(u"/usr/bin/udevadm"_s))
            GTEST_SKIP() << "there is no udev here";
        if (const auto complaint = outputOf({ownMounts, u"true"_s}); !complaint.empty())
            GTEST_SKIP() << "no mount namespace for this user: " << complaint;
    }

    /// What a shell says that runs `script` after namespace.sh, as a root of its own.
    std::string output(const std::string& script) const {
        return outputOf({ownMounts, u"sh"_s, QStringLiteral(BRIMLOW_TEST_FOLDER "/namespace.sh"),
                         QStringLiteral(BRIMLOW_ACCESS_HELPER), QStringLiteral(BRIMLOW_UDEV_RULE),
                         QString::fromStdString(script)});
    }

    const bool isRoot = geteuid() == 0;
    const QString ownMounts = isRoot ? u"-m"_s : u"-rm"_s;
};

TEST_F(AccessHelper, InstallsAndRemovesTheRuleWhateverItMeets) {
    const struct {
        const char* about;
        const char* script;
        const char* output;
    } scenes[] = {
        {"install", "helper install; files; cat /run/calls",
         "exit 0\n"
         "70-brimlow.rules f 644\n"
         "exact\n"
         "control --reload\n"
         "trigger --settle --action=change --subsystem-match=input "
         "--property-match=ID_INPUT_TOUCHPAD=1 --property-match=ID_INPUT_MOUSE=1\n"},
        {"a rule that is there", "echo old >$rule; chmod 600 $rule; helper install; files",
         "exit 0\n70-brimlow.rules f 644\nexact\n"},
        {"without the folder",
         "rmdir /etc/udev/rules.d; umask 077; helper install; files; stat -c %a /etc/udev/rules.d",
         "exit 0\n70-brimlow.rules f 644\nexact\n755\n"},
        {"remove, twice, and without the folder",
         "helper install; helper remove; wc -l </run/calls; helper remove; "
         "rmdir /etc/udev/rules.d; helper remove",
         "exit 0\nexit 0\n4\nexit 0\nexit 0\n"},
        {"links where it writes",
         "echo kept >/run/victim; ln -s /run/victim $rule; "
         "sh -c 'ln -s /run/victim /etc/udev/rules.d/.70-brimlow.rules.$$; "
         "exec /run/helper install'; files; cat /run/victim",
         "70-brimlow.rules f 644\nexact\nkept\n"},
        {"the folder is a link",
         "mkdir /run/else; rmdir /etc/udev/rules.d; ln -s /run/else /etc/udev/rules.d; "
         "helper install; helper remove; ls /run/else",
         "Brimlow: The udev rule cannot be written, Not a directory: see to /etc/udev/rules.d and "
         "try again.\nexit 4\n"
         "Brimlow: The udev rule cannot be removed, Not a directory: see to /etc/udev/rules.d and "
         "try again.\nexit 4\n"},
        {"read-only", "mount -t tmpfs -o ro tmpfs /etc/udev/rules.d; helper install",
         "Brimlow: The udev rule cannot be written, /etc is read-only here: add the rule to the "
         "system's own configuration.\nexit 4\n"},
        {"a full disk",
         "mount -t tmpfs -o size=4k tmpfs /etc/udev/rules.d; head -c 4096 /dev/zero >$rule; "
         "helper install; find /etc/udev/rules.d -mindepth 1 -printf '%f %s\\n'; ls /run/calls",
         "Brimlow: The udev rule cannot be written, the disk is full: make room on it and try "
         "again.\nexit 4\n70-brimlow.rules 4096\n"
         "ls: cannot access '/run/calls': No such file or directory\n"},
        {"a limit whose signal would kill it", "(ulimit -f 0; helper install)",
         "Brimlow: The udev rule cannot be written, File too large: see to /etc/udev/rules.d and "
         "try again.\nexit 4\n"},
        {"udev refuses",
         "echo 'exit 1' >/run/answer; helper install; files; helper remove; ls /etc/udev/rules.d",
         "Brimlow: The udev rule is in place, but udev does not answer: restart the computer for "
         "it to take effect.\nexit 5\n70-brimlow.rules f 644\nexact\n"
         "Brimlow: The udev rule is gone, but udev does not answer: restart the computer for it "
         "to take effect.\nexit 5\n"},
        {"udev hangs",
         "echo 'exec sleep 60' >/run/answer; begin=$(date +%s); helper install 2>/dev/null; "
         "[ $(($(date +%s) - begin)) -lt 20 ] && wc -l </run/calls",
         "exit 5\n1\n"},
        {"wrong arguments", "helper; helper install remove; ls /etc/udev/rules.d",
         "usage: brimlow-access-helper install|remove\nexit 2\n"
         "usage: brimlow-access-helper install|remove\nexit 2\n"},
        {"closed streams", "/run/helper install <&- >&- 2>&-; echo exit $?; files",
         "exit 0\n70-brimlow.rules f 644\nexact\n"},
        {"what udevadm gets to see",
         "cat >/run/answer <<'END'\n"
         "files=$(readlink /proc/$$/fd/[0-2])\n"
         "echo \"$files\" >/run/seen\n"
         "{ [ -e /proc/$$/fd/7 ] && echo open; pwd; wc -c </proc/$$/environ; } >>/run/seen\n"
         "grep -E '^(Umask|CapPrm|CapEff|CapBnd|NoNew)' /proc/self/status >>/run/seen\n"
         "setpriv --dump | grep Securebits >>/run/seen\n"
         "END\n"
         "umask 077; LD_LIBRARY_PATH=/run env --ignore-signal=CHLD /run/helper install "
         "7</run/expected; echo exit $?; cat /run/seen",
         "exit 0\n"
         "/dev/null\n/dev/null\n/dev/null\n/\n0\n"
         "Umask:\t0022\n"
         "CapPrm:\t0000000000000000\n"
         "CapEff:\t0000000000000000\n"
         "CapBnd:\t0000000000000000\n"
         "NoNewPrivs:\t1\n"
         "Securebits: noroot,noroot_locked,no_setuid_fixup,no_setuid_fixup_locked\n"},
    };
    for (const auto& scene : scenes)
        EXPECT_EQ(output(scene.script), scene.output) << scene.about;
}

TEST_F(AccessHelper, IsHeardByUdevAndRefusesOrdinaryUsers) {
    if (!isRoot)
        GTEST_SKIP() << "only root can start a udev of its own and become another user";
    EXPECT_EQ(output("umount /usr/bin/udevadm; export SYSTEMD_IGNORE_CHROOT=1\n"
                     "/lib/systemd/systemd-udevd --debug >/run/log 2>&1 & udev=$!\n"
                     "until udevadm control --ping; do sleep 0.1; done 2>/dev/null; "
                     "helper install; helper remove\n"
                     "udevadm control --ping\n" // it has come to all that was asked
                     "kill $udev; wait $udev; grep -c '(RELOAD)' /run/log"),
              "exit 0\nexit 0\n2\n");
    EXPECT_EQ(output("chmod 755 /run; setpriv --reuid=65534 --regid=65534 --clear-groups "
                     "/run/helper install; echo exit $?"),
              "Brimlow: Only root can change udev's rules: try again with sudo.\nexit 3\n");
}

TEST_F(AccessHelper, DoesTheSameAsTheCommandsByHand) {
    const std::string commands = platform::commandsToInstall().join(u'\n').toStdString();
    EXPECT_EQ(output("helper install; mv /run/calls /run/helper-calls; rm $rule\n"
                     "printf '#!/bin/sh\\nexec \"$@\"\\n' >/run/sudo; chmod 755 /run/sudo\n"
                     "PATH=/run:$PATH\n"
                     + commands + "\nfiles; cmp /run/calls /run/helper-calls && echo same"),
              "exit 0\n70-brimlow.rules f 644\nexact\nsame\n");
}

} // namespace
} // namespace brimlow::test
