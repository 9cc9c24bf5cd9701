#pragma once

#include <system_error>

namespace railwright {

/// Returns the error of the last failed system call on this thread. It is comparable with std::errc. Its
/// message is the system's, in the user's language.
std::error_code LastError();

} // namespace railwright
