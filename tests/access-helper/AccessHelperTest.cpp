// The helper as root, on folders that are not the system's.

#include "tests/access-helper/Namespace.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

struct Scene {
    const char* name;
    const char* script;
    const char* output;
};

void PrintTo(const Scene& scene, std::ostream* stream) {
    *stream << scene.name;
}

class AccessHelper : public testing::TestWithParam<Scene> {};

TEST_P(AccessHelper, Does) {
    if (const auto missing = missingForNamespace(); !missing.empty())
        GTEST_SKIP() << missing;
    EXPECT_EQ(outputInNamespace(GetParam().script), GetParam().output);
}

constexpr Scene scenes[] = {
    {"Install", "helper install; files; cat /run/calls",
     "exit 0\n"
     "70-brimlow.rules f 644\n"
     "exact\n"
     "control --reload\n"
     "trigger --settle --action=change --subsystem-match=input "
     "--property-match=ID_INPUT_TOUCHPAD=1 --property-match=ID_INPUT_MOUSE=1\n"},
    {"InstallTwice", "helper install; umask 077; helper install; files",
     "exit 0\nexit 0\n70-brimlow.rules f 644\nexact\n"},
    {"InstallOverOther", "echo old >$rule; chmod 600 $rule; helper install; files",
     "exit 0\n70-brimlow.rules f 644\nexact\n"},
    {"InstallWithoutFolder",
     "rmdir /etc/udev/rules.d; umask 077; helper install; files; stat -c %a /etc/udev/rules.d",
     "exit 0\n70-brimlow.rules f 644\nexact\n755\n"},
    {"Remove", "helper install; helper remove; ls -A /etc/udev/rules.d; wc -l </run/calls",
     "exit 0\nexit 0\n4\n"},
    {"RemoveNothing", "helper remove; rmdir /etc/udev/rules.d; helper remove", "exit 0\nexit 0\n"},
    {"RuleIsLink",
     "echo kept >/run/victim; ln -s /run/victim $rule; helper install; files; "
     "cat /run/victim",
     "exit 0\n70-brimlow.rules f 644\nexact\nkept\n"},
    {"NewFileIsLink",
     "echo kept >/run/victim; sh -c 'ln -s /run/victim /etc/udev/rules.d/.70-brimlow.rules.$$; "
     "exec /run/helper install'; files; cat /run/victim",
     "70-brimlow.rules f 644\nexact\nkept\n"},
    {"FolderIsLink",
     "mkdir /run/else; rmdir /etc/udev/rules.d; ln -s /run/else /etc/udev/rules.d; helper install; "
     "helper remove; ls /run/else",
     "Brimlow: The udev rule cannot be written, Not a directory: see to /etc/udev/rules.d and try "
     "again.\nexit 4\n"
     "Brimlow: The udev rule cannot be removed, Not a directory: see to /etc/udev/rules.d and try "
     "again.\nexit 4\n"},
    {"ReadOnly",
     "mount -t tmpfs -o ro tmpfs /etc/udev/rules.d; helper install; ls -A /etc/udev/rules.d",
     "Brimlow: The udev rule cannot be written, /etc is read-only here: add the rule to the "
     "system's own configuration.\nexit 4\n"},
    {"DiskFull",
     "mount -t tmpfs -o size=4k tmpfs /etc/udev/rules.d; head -c 4096 /dev/zero >$rule; "
     "helper install; find /etc/udev/rules.d -mindepth 1 -printf '%f %s\\n'; ls /run/calls",
     "Brimlow: The udev rule cannot be written, the disk is full: make room on it and try "
     "again.\nexit 4\n70-brimlow.rules 4096\n"
     "ls: cannot access '/run/calls': No such file or directory\n"},
    {"NoUdev",
     "echo 'exit 1' >/run/answer; helper install; files; helper remove; ls /etc/udev/rules.d",
     "Brimlow: The udev rule is in place, but udev does not answer: restart the computer for it to "
     "take effect.\nexit 5\n70-brimlow.rules f 644\nexact\n"
     "Brimlow: The udev rule is gone, but udev does not answer: restart the computer for it to "
     "take effect.\nexit 5\n"},
    {"UdevHangs",
     "echo 'exec sleep 60' >/run/answer; begin=$(date +%s); helper install; "
     "[ $(($(date +%s) - begin)) -lt 20 ] && wc -l </run/calls",
     "Brimlow: The udev rule is in place, but udev does not answer: restart the computer for it to "
     "take effect.\nexit 5\n1\n"},
    {"WrongArguments", "helper; helper install remove; helper --install; ls /etc/udev/rules.d",
     "usage: brimlow-access-helper install|remove\nexit 2\n"
     "usage: brimlow-access-helper install|remove\nexit 2\n"
     "usage: brimlow-access-helper install|remove\nexit 2\n"},
    {"ClosedStreams",
     "echo 'echo $(readlink /proc/$$/fd/0) >/run/seen; exit 1' >/run/answer; "
     "/run/helper install <&- >&- 2>&-; echo exit $?; files; cat /run/seen",
     "exit 5\n70-brimlow.rules f 644\nexact\n/dev/null\n"},
    {"FileSizeLimit", "(ulimit -f 0; helper install); ls -A /etc/udev/rules.d",
     "Brimlow: The udev rule cannot be written, File too large: see to /etc/udev/rules.d and try "
     "again.\nexit 4\n"},
    {"IgnoredChildren", "env --ignore-signal=CHLD /run/helper install; echo exit $?", "exit 0\n"},
    // What udevadm gets to see.
    {"Surroundings",
     "cat >/run/answer <<'END'\n"
     "files=$(readlink /proc/$$/fd/[0-2])\n"
     "echo \"$files\" >/run/seen\n"
     "{ [ -e /proc/$$/fd/7 ] && echo open; pwd; wc -c </proc/$$/environ; } >>/run/seen\n"
     "grep -E '^(Umask|Cap|NoNew)' /proc/self/status >>/run/seen\n"
     "setpriv --dump | grep Securebits >>/run/seen\n"
     "END\n"
     "umask 077; LD_LIBRARY_PATH=/run IFS=/ helper install 7</run/expected; cat /run/seen",
     "exit 0\n"
     "/dev/null\n/dev/null\n/dev/null\n/\n0\n"
     "Umask:\t0022\n"
     "CapInh:\t0000000000000000\n"
     "CapPrm:\t0000000000000000\n"
     "CapEff:\t0000000000000000\n"
     "CapBnd:\t0000000000000000\n"
     "CapAmb:\t0000000000000000\n"
     "NoNewPrivs:\t1\n"
     "Securebits: noroot,noroot_locked,no_setuid_fixup,no_setuid_fixup_locked\n"},
};

INSTANTIATE_TEST_SUITE_P(, AccessHelper, testing::ValuesIn(scenes),
                         [](const auto& scene) { return scene.param.name; });

TEST(AccessHelperAlone, RefusesOrdinaryUsers) {
    EXPECT_EQ(outputAsOrdinaryUser("install"),
              "Brimlow: Only root can change udev's rules: try again with sudo.\nexit 3\n");
}

TEST(AccessHelperAlone, IsHeardByUdev) {
    if (!isRoot())
        GTEST_SKIP() << "only root can start a udev of its own";
    EXPECT_EQ(outputInNamespace("umount /usr/bin/udevadm; export SYSTEMD_IGNORE_CHROOT=1\n"
                                "/lib/systemd/systemd-udevd --debug >/run/log 2>&1 & udev=$!\n"
                                "until udevadm control --ping; do sleep 0.1; done 2>/dev/null; "
                                "helper install; helper remove\n"
                                "udevadm control --ping\n" // it has come to all that was asked
                                "kill $udev; wait $udev; grep -c '(RELOAD)' /run/log"),
              "exit 0\nexit 0\n2\n");
}

} // namespace
} // namespace brimlow::test
