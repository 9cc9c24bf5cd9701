#pragma once

#include <cstddef>

namespace railwright::testing {

/// @return all bytes that the test program has asked the heap for with `new` so far, given back or not.
std::size_t AllocatedBytes();

} // namespace railwright::testing
