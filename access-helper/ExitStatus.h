#pragma once

namespace brimlow::access {

/// What the helper answers to whoever started it. Everything but `done` comes with one sentence on
/// standard error that begins with "Brimlow: "; `usage` with the usage.
enum ExitStatus {
    done = 0,
    usage = 2,
    notRoot = 3,
    ruleUnchanged = 4, // it could not be written or removed: /etc is read-only, full, …
    udevNotTold = 5,   // it was; but it takes effect with the next restart only
    notConfined = 6,   // privileges could not be dropped, so nothing was done
};

} // namespace brimlow::access
