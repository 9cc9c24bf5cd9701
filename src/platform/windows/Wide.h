#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// @return `utf8` in the system's UTF-16; ill-formed bytes become the replacement character.
std::wstring ToWide(std::string_view utf8);

/// @return `wide` as UTF-8.
std::string FromWide(std::wstring_view wide);

} // namespace railwright
