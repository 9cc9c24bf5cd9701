#pragma once

#include <string>
#include <system_error>

namespace railwright {

/// Gives a new file the owner, the rights and the extended attributes of another. If only the owner cannot be
/// kept, the group is. Where a right cannot be kept it fails; until then the new file has fewer rights.
/// @param from in native form. @param to open to be written, with no rights but its owner's.
void TakeOverProperties(const std::string& from, int to, std::error_code& error);

} // namespace railwright
