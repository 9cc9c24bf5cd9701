#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// @return a path as the user or another program gave it, in the form that the program uses inside: UTF-8
/// with backslashes.
std::string PathFromOutside(std::string_view path);

/// @return a path of the program in the form that the user knows it by.
std::string PathForOutside(std::string_view path);

} // namespace railwright
