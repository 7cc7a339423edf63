#pragma once

#include <string>

namespace brimlow::platform {

/// One line, written at once, line feed added. Any thread.
void printToStandardError(std::string line);

} // namespace brimlow::platform
