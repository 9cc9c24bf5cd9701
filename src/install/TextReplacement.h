#pragma once

#include "base/Types.h"

#include <cstddef>
#include <functional>
#include <map>

namespace railwright {

/// Finds `piece` in `in` from `from` on, ignoring case. Returns its position, or text::npos.
std::size_t FindIgnoringCase(const text& in, const text& piece, std::size_t from);

/// Returns `in` with every `piece`, in any case, replaced by `by`.
text ReplacedIgnoringCase(const text& in, const text& piece, const text& by);

/// Pieces of a text, none of them empty, and their replacements.
using Pieces = std::map<text, text, std::less<>>;

/// Replaces every piece in one pass, so that no replacement is replaced again. The longest piece wins if
/// several begin at the same position.
text ReplacedAtOnce(TextView in, const Pieces& pieces);

} // namespace railwright
