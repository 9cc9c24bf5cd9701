#pragma once

#include "base/Types.h"

#include <cstddef>
#include <functional>
#include <map>

namespace railwright {

/// @return where `piece` stands in `in` from `from` on, in any case of letters; text::npos if nowhere.
std::size_t FindIgnoringCase(const text& in, const text& piece, std::size_t from);

/// @return `in` with `by` wherever `piece` stood, in any case of letters.
text ReplacedIgnoringCase(const text& in, const text& piece, const text& by);

/// Pieces of a text, none of them empty, and what takes the place of each.
using Pieces = std::map<text, text, std::less<>>;

/// Replaces each of some pieces, wherever it stands, by what belongs to it. Where several begin, the longest
/// is taken, and nothing is replaced twice.
text ReplacedAtOnce(TextView in, const Pieces& pieces);

} // namespace railwright
