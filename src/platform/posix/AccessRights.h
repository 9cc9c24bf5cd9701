#pragma once

#include <string>
#include <system_error>

namespace railwright {

/// Gives a new file the owner, the rights and the extended attributes of another. Keeps only the group if the
/// owner cannot be kept. Fails if a right cannot be kept; until the end, the new file has fewer rights.
/// @param from native path of the other file.
/// @param to descriptor of the new file, open to write and accessible only to its owner.
void TakeOverProperties(const std::string& from, int to, std::error_code& error);

} // namespace railwright
