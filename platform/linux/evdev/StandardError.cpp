#include "platform/linux/evdev/StandardError.h"

#include <unistd.h>

namespace brimlow::platform {

void printToStandardError(std::string line) {
    line += '\n';
    [[maybe_unused]] const auto size = write(STDERR_FILENO, line.data(), line.size());
}

} // namespace brimlow::platform
