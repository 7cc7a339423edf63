#include "platform/Format.h"

#include <array>
#include <charconv>

namespace brimlow::platform {

QString fixed(double value, int decimals) {
    std::array<char, 384> buffer{}; // the largest double has 309 digits before the point
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    return QString::fromLatin1(buffer.data(), result.ptr - buffer.data());
}

} // namespace brimlow::platform
