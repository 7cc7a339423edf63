// The only part of Brimlow that ever runs as root: puts the udev rule in its place, or takes it
// away. Nothing of it can be chosen by the caller but which of the two.

#include "access-helper/Confinement.h"
#include "access-helper/ExitStatus.h"
#include "access-helper/RuleFile.h"
#include "access-helper/Udev.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

using namespace brimlow::access;

namespace {

ExitStatus refuse(ExitStatus status, const std::string& sentence) {
    dprintf(STDERR_FILENO, "Brimlow: %s\n", sentence.c_str());
    return status;
}

std::string whatToDoAbout(int error) {
    switch (error) {
    case EROFS:
        return "/etc is read-only here: add the rule to the system's own configuration.";
    case ENOSPC:
    case EDQUOT:
        return "the disk is full: make room on it and try again.";
    default:
        return std::string(std::strerror(error)) + ": see to /etc/udev/rules.d and try again.";
    }
}

ExitStatus install() {
    if (const int error = writeRule())
        return refuse(ruleUnchanged, "The udev rule cannot be written, " + whatToDoAbout(error));
    if (!tellUdev())
        return refuse(udevNotTold, "The udev rule is in place, but udev does not answer: restart "
                                   "the computer for it to take effect.");
    return done;
}

ExitStatus remove() {
    if (const int error = removeRule())
        return refuse(ruleUnchanged, "The udev rule cannot be removed, " + whatToDoAbout(error));
    if (!tellUdev())
        return refuse(udevNotTold, "The udev rule is gone, but udev does not answer: restart the "
                                   "computer for it to take effect.");
    return done;
}

ExitStatus run(std::string_view verb) {
    if (verb != "install" && verb != "remove") {
        dprintf(STDERR_FILENO, "usage: brimlow-access-helper install|remove\n");
        return usage;
    }
    if (geteuid() != 0)
        return refuse(notRoot, "Only root can change udev's rules: try again with sudo.");
    if (!dropPrivileges())
        return refuse(notConfined, "Privileges cannot be dropped here, so nothing was changed: "
                                   "install the udev rule by hand.");
    return verb == "install" ? install() : remove();
}

} // namespace

int main(int count, char* arguments[]) {
    if (!leaveCaller())
        return refuse(notConfined, "The caller's surroundings cannot be left, so nothing was "
                                   "changed: try again after a restart.");
    return run(count == 2 ? arguments[1] : "");
}
