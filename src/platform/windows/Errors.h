#pragma once

#include <system_error>

namespace railwright {

/// @return the last failure of a system call on this thread. It compares with the conditions of std::errc,
/// and its message is the system's own text in the user's language.
std::error_code LastError();

} // namespace railwright
