#pragma once

#include <QtGlobal>

namespace brimlow::bench {

// What the kernel counts of a running process; all of it is 0 for one that does not run.

/// How often the threads went to sleep by themselves: once for each time they woke.
qint64 wakeUps(qint64 pid);

/// In kilobytes.
struct Memory {
    qint64 own = 0;      // what no other process maps as well
    qint64 written = 0;  // of it, by the process: not read from a file
    qint64 resident = 0; // shared libraries included
};
Memory memoryOf(qint64 pid);

} // namespace brimlow::bench
