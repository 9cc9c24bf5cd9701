#pragma once

#include <string>
#include <system_error>

namespace railwright {

/// Gives a file the access rights of another, where its own are not the same already. On a file system
/// without rights nothing happens.
/// @param from, to paths as the system's calls take them.
void CopyAccessRights(const std::wstring& from, const std::wstring& to, std::error_code& error);

} // namespace railwright
