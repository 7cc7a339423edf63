#include "access-helper/Confinement.h"

#include <cap-ng.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace brimlow::access {

namespace {

// Or else the rule's file could become standard error.
bool openStandardStreams() {
    for (;;) {
        const int descriptor = open("/dev/null", O_RDWR | O_CLOEXEC);
        if (descriptor < 0)
            return false;
        if (descriptor > STDERR_FILENO)
            return close_range(STDERR_FILENO + 1, ~0U, 0) == 0;
        if (fcntl(descriptor, F_SETFD, 0) != 0)
            return false;
    }
}

// Blocked, none can stop us half-way: neither Ctrl-C nor a limit on file sizes nor a closed pipe.
// An ignored SIGCHLD would keep the children's exit codes from us.
bool blockSignals() {
    sigset_t all;
    sigfillset(&all);
    return sigprocmask(SIG_SETMASK, &all, nullptr) == 0 && signal(SIGCHLD, SIG_DFL) != SIG_ERR;
}

} // namespace

bool leaveCaller() {
    umask(022);
    return clearenv() == 0 && chdir("/") == 0 && blockSignals() && openStandardStreams();
}

bool dropPrivileges() {
    capng_clear(CAPNG_SELECT_ALL);
    // The secure bits and the bounding set take a capability to change: they come first, in
    // capng_apply too.
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || capng_lock() != 0
        || capng_apply(CAPNG_SELECT_ALL) != 0)
        return false;
    capng_clear(CAPNG_SELECT_ALL);
    return capng_get_caps_process() == 0 && capng_have_capabilities(CAPNG_SELECT_ALL) == CAPNG_NONE
           && capng_have_permitted_capabilities() == CAPNG_NONE;
}

} // namespace brimlow::access
