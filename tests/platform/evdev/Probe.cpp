#include "Probe.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>

namespace brimlow::platform {

Probe::Probe(const Environment& environment, const std::vector<std::string>& arguments) {
    std::vector<std::string> words{BRIMLOW_TOUCH_PROBE, BRIMLOW_TOUCH_IMAGE};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables;
    variables.reserve(environment.size());
    for (const auto& [name, value] : environment)
        variables.push_back(std::string(name).append("=").append(value));
    const auto pointers = [](std::vector<std::string>& texts) {
        std::vector<char*> list;
        list.reserve(texts.size() + 1);
        for (std::string& text : texts)
            list.push_back(text.data());
        list.push_back(nullptr);
        return list;
    };
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    errors_ = memfd_create("errors", MFD_CLOEXEC);
    if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors_, STDERR_FILENO);
    const int failed = posix_spawn(&process_, BRIMLOW_TOUCH_PROBE, &actions, nullptr,
                                   pointers(words).data(), pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    input_ = in[1];
    output_ = out[0];
    if (failed != 0)
        throw std::runtime_error("cannot start " BRIMLOW_TOUCH_PROBE);
}

Probe::~Probe() {
    finish();
    close(output_);
    close(errors_);
}

std::string Probe::next(double seconds) {
    while (rest_.find('\n') == std::string::npos) {
        pollfd readable{output_, POLLIN, 0};
        std::array<char, 4096> bytes{};
        if (poll(&readable, 1, static_cast<int>(seconds * 1000)) != 1)
            return "(silent)";
        const ssize_t size = read(output_, bytes.data(), bytes.size());
        if (size <= 0)
            return "(silent)";
        rest_.append(bytes.data(), static_cast<std::size_t>(size));
    }
    const auto end = rest_.find('\n');
    const std::string line = rest_.substr(0, end);
    rest_.erase(0, end + 1);
    return line;
}

std::vector<std::string> Probe::upTo(const std::string& last) {
    std::vector<std::string> lines;
    do
        lines.push_back(next());
    while (lines.back() != last && lines.back() != "(silent)");
    return lines;
}

void Probe::ask(const std::string& line) {
    const std::string text = line + "\n";
    [[maybe_unused]] const auto size = write(input_, text.data(), text.size());
}

std::string Probe::finish() {
    if (process_ > 0) {
        close(input_);
        waitpid(process_, nullptr, 0);
        process_ = -1;
    }
    std::string text(static_cast<std::size_t>(lseek(errors_, 0, SEEK_END)), '\0');
    [[maybe_unused]] const auto size = pread(errors_, text.data(), text.size(), 0);
    return text;
}

} // namespace brimlow::platform
