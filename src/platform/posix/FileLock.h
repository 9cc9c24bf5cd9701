#pragma once

#include <system_error>

namespace railwright {

/// Keeps an open file or folder to this process until it is closed, against all who ask in this way. Waits
/// for some three seconds; then it fails with resource_unavailable_try_again. On a file system without locks
/// nothing happens.
void LockPatiently(int descriptor, std::error_code& error);

} // namespace railwright
