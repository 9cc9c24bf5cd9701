#pragma once

#include <cstddef>

namespace railwright {

/// Tells the system that memory which nothing has touched yet is going to be filled from end to end, so that
/// it may come in large pages: a long list is then there in a third of the time. Changes nothing else.
/// @param size bytes; with little memory nothing happens.
void PreferLargePages(void* memory, std::size_t size);

} // namespace railwright
