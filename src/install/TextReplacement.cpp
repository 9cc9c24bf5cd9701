#include "install/TextReplacement.h"

#include "base/Text.h"
#include "platform/CodePage.h"

#include <algorithm>

namespace railwright {
namespace {

/// Returns the longest piece that is a prefix of `rest`; end() if there is none.
Pieces::const_iterator LongestAt(TextView rest, const Pieces& pieces) {
    // The prefix sorts before `rest`. All pieces between the two share that prefix, so cutting `rest` to the
    // common start of the nearest piece skips none.
    for (auto next = pieces.upper_bound(rest); next != pieces.begin(); next = pieces.upper_bound(rest)) {
        const text& nearest = (--next)->first;
        if (rest.starts_with(nearest))
            return next;
        rest = {rest.begin(), std::mismatch(rest.begin(), rest.end(), nearest.begin(), nearest.end()).first};
    }
    return pieces.end();
}

} // namespace

std::size_t FindIgnoringCase(const text& in, const text& piece, std::size_t from) {
    return LowerCase(in, SystemCodePage()).find(LowerCase(piece, SystemCodePage()), from);
}

text ReplacedIgnoringCase(const text& in, const text& piece, const text& by) {
    text replaced;
    std::size_t from = 0;
    const text lower = LowerCase(in, SystemCodePage());
    const text wanted = LowerCase(piece, SystemCodePage());
    for (std::size_t at = 0; (at = lower.find(wanted, from)) != text::npos; from = at + piece.size())
        replaced += in.substr(from, at - from) + by;
    return replaced + in.substr(from);
}

text ReplacedAtOnce(TextView in, const Pieces& pieces) {
    text replaced;
    while (!in.empty()) {
        const auto piece = LongestAt(in, pieces);
        const bool isNone = piece == pieces.end();
        replaced += isNone ? in.substr(0, 1) : TextView(piece->second);
        in.remove_prefix(isNone ? 1 : piece->first.size());
    }
    return replaced;
}

} // namespace railwright
