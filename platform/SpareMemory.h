#pragma once

namespace brimlow::platform {

/// Gives back what the process holds and has no use for at the moment: the heap's free pages, and
/// the pages of the program and its libraries that were only read. Those it needs again are mapped
/// from the page cache, so what comes next is a little slower. Takes about a millisecond. A
/// debugger's breakpoints are in such pages and go with them. Any thread.
void returnSpareMemory();

} // namespace brimlow::platform
