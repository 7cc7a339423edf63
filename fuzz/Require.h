#pragma once

#include <cstdio>
#include <cstdlib>

namespace brimlow::fuzz {

/// Ends the process, which is how a fuzzer tells that it has found something.
inline void require(bool holds, const char* invariant) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", invariant);
    std::abort();
}

} // namespace brimlow::fuzz
