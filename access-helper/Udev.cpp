#include "access-helper/Udev.h"

#include "access-helper/UdevCommands.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <csignal>
#include <span>
#include <vector>

namespace brimlow::access {

using platform::FileDescriptor;

namespace {

constexpr const char* udevadm = "/usr/bin/udevadm";
constexpr int patience = 10'000; // milliseconds

[[noreturn]] void become(std::span<const char* const> command) {
    std::vector<char*> arguments;
    for (const char* argument : command)
        arguments.push_back(const_cast<char*>(argument));
    arguments.push_back(nullptr);
    char* const noEnvironment[] = {nullptr};
    sigset_t none;
    sigemptyset(&none);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (dup2(nowhere, STDIN_FILENO) == STDIN_FILENO && dup2(nowhere, STDOUT_FILENO) == STDOUT_FILENO
        && dup2(nowhere, STDERR_FILENO) == STDERR_FILENO
        && sigprocmask(SIG_SETMASK, &none, nullptr) == 0)
        execve(udevadm, arguments.data(), noEnvironment);
    _exit(127);
}

bool endsInTime(pid_t child) {
    // glibc 2.36 declares pidfd_open for C only
    const FileDescriptor handle(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
    pollfd ended{.fd = handle.get(), .events = POLLIN, .revents = 0};
    return handle && poll(&ended, 1, patience) == 1;
}

bool run(std::span<const char* const> command) {
    const pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0)
        become(command);
    if (!endsInTime(child))
        kill(child, SIGKILL);
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool tellUdev() {
    return run(reloadRules) && run(applyRules);
}

} // namespace brimlow::access
