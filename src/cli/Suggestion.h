#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace railwright {

/// @return the number of letters to change, add, remove or swap with a neighbour to turn `typed` into `name`.
/// `name` is in lower case. Ignores case.
std::size_t EditsBetween(std::string_view typed, std::string_view name);

/// @return ", did you mean 'X'?" with the Name closest to `typed`, for the end of an error message. Empty if
/// every name differs in more than a third of its letters.
template <class Rows>
std::string DidYouMean(std::string_view typed, const Rows& rows) {
    std::string_view nearest;
    std::size_t fewest = typed.size();
    for (const auto& row : rows) {
        const std::string_view name = row.Name;
        const std::size_t most = name.size() / 3;
        if (typed.size() > name.size() + most)
            continue; // skipped, as `typed` may be very long
        if (const std::size_t edits = EditsBetween(typed, name); edits <= most && edits < fewest) {
            nearest = name;
            fewest = edits;
        }
    }
    return nearest.empty() ? "" : ", did you mean '" + std::string(nearest) + "'?";
}

} // namespace railwright
