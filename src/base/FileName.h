#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// The extensions of the two kinds of document, with their dot and in lower case.
inline constexpr std::string_view TrackExtension = ".nltrack";
inline constexpr std::string_view ElementExtension = ".nlelem";

/// Compares ASCII letters in any case. @param lowerCase in lower case.
bool SameIgnoringCase(std::string_view name, std::string_view lowerCase);

/// @return whether the name's last characters are `extension`, which is in lower case; the case of the name's
/// own letters does not matter.
bool HasExtension(std::string_view path, std::string_view extension);

/// @return `name` without any occurrence of `piece`, an ASCII string in lower case, in any case of letters.
/// What only comes together by the removal stays.
std::string WithoutEvery(std::string_view name, std::string_view piece);

} // namespace railwright
