#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace brimlow::platform {

/// A running touch-probe. It is told to end, and waited for, when this is destroyed.
class Probe {
public:
    using Environment = std::map<std::string, std::string>;

    explicit Probe(const Environment& environment, const std::vector<std::string>& arguments = {});
    ~Probe();
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    /// The next line it says, or "(silent)" when none comes within `seconds`.
    std::string next(double seconds = 10);
    /// All it says up to and including `last`, or up to the silence.
    std::vector<std::string> upTo(const std::string& last);

    /// Sends it a line, to which it says "asked" last.
    void ask(const std::string& line = "unreadable?");

    /// Ends it; what it wrote on standard error.
    std::string finish();

private:
    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    int errors_ = -1;
    std::string rest_;
};

} // namespace brimlow::platform
