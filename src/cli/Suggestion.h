#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace railwright {

/// @return how many letters have to be changed, added, left out or swapped with their neighbour to make
/// `name`, which is in lower case, of `typed`. Case does not count.
std::size_t EditsBetween(std::string_view typed, std::string_view name);

/// @return the end of a message about a word that stands in no row of a table: ", did you mean 'X'?" with the
/// Name that is nearest to it. It is empty if each name differs in more than a third of its letters.
template <class Rows>
std::string DidYouMean(std::string_view typed, const Rows& rows) {
    std::string_view nearest;
    std::size_t fewest = typed.size();
    for (const auto& row : rows) {
        const std::string_view name = row.Name;
        const std::size_t most = name.size() / 3;
        if (typed.size() > name.size() + most)
            continue; // and it may be very long
        if (const std::size_t edits = EditsBetween(typed, name); edits <= most && edits < fewest) {
            nearest = name;
            fewest = edits;
        }
    }
    return nearest.empty() ? "" : ", did you mean '" + std::string(nearest) + "'?";
}

} // namespace railwright
