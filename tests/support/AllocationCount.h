#pragma once

namespace brimlow::test {

/// How often this thread has asked the heap for memory with new. Linking the target
/// allocation_count replaces the operators of the whole program.
long allocationsOfThisThread();

} // namespace brimlow::test
