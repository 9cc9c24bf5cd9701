#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// The extensions of the two kinds of document, with their dot and in lower case.
inline constexpr std::string_view TrackExtension = ".nltrack";
inline constexpr std::string_view ElementExtension = ".nlelem";

/// Inside the program every path is UTF-8 in Windows form, with backslashes.

/// @return whether the name's last characters are `extension`, which is in lower case; the case of the name's
/// own letters does not matter.
bool HasExtension(std::string_view path, std::string_view extension);

/// @return what stands behind the last backslash; the whole path if there is none.
std::string BaseName(std::string_view path);

/// @return the path up to and including its last backslash; empty if there is none.
std::string FolderOf(std::string_view path);

/// @return `name` without any occurrence of `piece`, an ASCII string in lower case, in any case of letters.
/// What only comes together by the removal stays.
std::string WithoutEvery(std::string_view name, std::string_view piece);

} // namespace railwright
