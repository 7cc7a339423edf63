#pragma once

#include <ctime>

namespace brimlow::test {

/// Processor time that all threads of this process have taken, in milliseconds: unlike the time of
/// a clock it does not hang on what else runs on the machine.
inline double processorMilliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// How many times longer the program may take under a sanitizer.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr double slowdown = 10;
#else
constexpr double slowdown = 1;
#endif

} // namespace brimlow::test
