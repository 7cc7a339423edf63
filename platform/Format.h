#pragma once

#include <QString>

namespace brimlow::platform {

/// `value` with exactly `decimals` digits (0…20) after a decimal point, as C's "%.<n>f" writes it
/// in the C locale: exact ties round to even, whatever the environment's locale is. QString::number
/// would round halves up.
QString fixed(double value, int decimals);

} // namespace brimlow::platform
