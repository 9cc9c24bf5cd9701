#pragma once

#include <string>
#include <system_error>

namespace railwright {

/// Copies the access rights of one file to another, unless they are equal already. Does nothing on a file
/// system without rights.
/// @param from, to native paths.
void CopyAccessRights(const std::wstring& from, const std::wstring& to, std::error_code& error);

} // namespace railwright
