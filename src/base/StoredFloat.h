#pragma once

#include <cmath>
#include <limits>

namespace railwright {

/// Returns a computed number as a document stores it, rounded to 32 bits. The result of a computation that is
/// not a number is always the NaN with the bytes 7F C0 00 00, because its sign and its other bits depend on
/// the compiler. A field that is only carried keeps its bits.
inline float Stored(double computed) {
    const auto rounded = static_cast<float>(computed);
    return std::isnan(rounded) ? std::numeric_limits<float>::quiet_NaN() : rounded;
}
inline float Stored(float computed) {
    return std::isnan(computed) ? std::numeric_limits<float>::quiet_NaN() : computed;
}

} // namespace railwright
