#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// The extensions of the two document kinds, with their dot, in lower case.
inline constexpr std::string_view TrackExtension = ".nltrack";
inline constexpr std::string_view ElementExtension = ".nlelem";

/// Compares strings, ignoring the case of ASCII letters. @param lowerCase must be in lower case.
bool SameIgnoringCase(std::string_view name, std::string_view lowerCase);

/// Returns whether the path ends in `extension`, ignoring case. `extension` must be in lower case.
bool HasExtension(std::string_view path, std::string_view extension);

/// Returns `name` without any occurrence of `piece`, ignoring case. `piece` is ASCII in lower case.
/// Occurrences created by the removal remain.
std::string WithoutEvery(std::string_view name, std::string_view piece);

} // namespace railwright
