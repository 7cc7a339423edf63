#pragma once

namespace brimlow::platform {

/// Gives back what the process holds and has no use for at the moment: the heap's free pages, and
/// the pages of the program and its libraries that were only read. Those it needs again come from
/// the page cache, a few microseconds each. Takes about a millisecond. Any thread.
void returnSpareMemory();

} // namespace brimlow::platform
