#pragma once

namespace brimlow::access {

// Both give an errno, or 0. Whoever reads the rule meanwhile finds all of it or nothing.

int writeRule();

/// That there is none is fine.
int removeRule();

} // namespace brimlow::access
