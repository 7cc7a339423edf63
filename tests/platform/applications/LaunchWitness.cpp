// Tells the FIFO that BRIMLOW_WITNESS names how this process was started: items "key=value", each
// followed by a zero byte.

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string report;

void tell(const std::string& key, const std::string& value) {
    report += key + '=' + value + '\0';
}

std::string descriptors() {
    std::string targets;
    for (int number = 0; number < 1024; ++number) {
        std::error_code absent;
        const auto target =
            std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(number), absent);
        if (!absent)
            targets += target.string() + '\n';
    }
    return targets;
}

} // namespace

int main(int count, char* arguments[], char* environment[]) {
    tell("descriptors", descriptors());
    std::string lines;
    for (int i = 1; i < count; ++i)
        lines += std::string(arguments[i]) + '\n';
    tell("arguments", lines);
    for (char** each = environment; *each; ++each)
        report += std::string("$") + *each + '\0';
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("SigBlk:") || line.starts_with("SigIgn:"))
            tell(line.substr(0, 6), line.substr(8));
    }
    tell("folder", std::filesystem::current_path());
    tell("process", std::to_string(getpid()));
    tell("session", std::to_string(getsid(0)));
    tell("parent", std::to_string(getppid()));
    std::ofstream(std::getenv("BRIMLOW_WITNESS")) << report;
}
