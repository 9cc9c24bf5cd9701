#pragma once

#include <string>
#include <system_error>

namespace railwright {

/// Renames a file or folder and fails if the new name is taken. Paths are native.
void MoveNative(const std::string& from, const std::string& to, std::error_code& error);

} // namespace railwright
