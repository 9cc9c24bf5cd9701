#pragma once

#include <string>
#include <system_error>
#include <vector>

namespace railwright {

/// @return the native form of a path whose name may exist in another case of letters: each missing component
/// is looked up ignoring case in its folder. What is not found stays as it is.
std::string ExistingName(const std::string& path);

/// @return the native form of a path whose last component is taken as it stands, its folder as in
/// ExistingName.
std::string NewName(const std::string& path);

/// @return the names in a folder, given in native form, in no order.
std::vector<std::string> NamesIn(const std::string& nativeFolder, std::error_code& error);

} // namespace railwright
