#pragma once

#include <cmath>
#include <limits>

namespace railwright {

/// Rounds a computed number to the 32 bits that a document stores. A computed NaN always becomes the NaN with
/// the bytes 7F C0 00 00, because its sign and other bits depend on the compiler. Do not use it for a field
/// that is only copied, which keeps its bits.
inline float Stored(double computed) {
    const auto rounded = static_cast<float>(computed);
    return std::isnan(rounded) ? std::numeric_limits<float>::quiet_NaN() : rounded;
}
inline float Stored(float computed) {
    return std::isnan(computed) ? std::numeric_limits<float>::quiet_NaN() : computed;
}

} // namespace railwright
