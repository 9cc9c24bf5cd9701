#include "cli/Suggestion.h"

#include <algorithm>
#include <vector>

namespace railwright {

std::size_t EditsBetween(std::string_view typed, std::string_view name) {
    const auto letter = [typed](std::size_t i) {
        return static_cast<char>(typed[i] >= 'A' && typed[i] <= 'Z' ? typed[i] + 0x20 : typed[i]);
    };
    // edits[i][j] is the number of edits between the first i letters of `typed` and the first j of `name`.
    std::vector<std::vector<std::size_t>> edits(typed.size() + 1, std::vector<std::size_t>(name.size() + 1));
    for (std::size_t i = 0; i <= typed.size(); ++i)
        for (std::size_t j = 0; j <= name.size(); ++j) {
            if (i == 0 || j == 0) {
                edits[i][j] = i + j;
                continue;
            }
            const std::size_t change = letter(i - 1) == name[j - 1] ? 0 : 1;
            edits[i][j] = std::min({edits[i - 1][j] + 1, edits[i][j - 1] + 1, edits[i - 1][j - 1] + change});
            if (i > 1 && j > 1 && letter(i - 1) == name[j - 2] && letter(i - 2) == name[j - 1])
                edits[i][j] = std::min(edits[i][j], edits[i - 2][j - 2] + 1);
        }
    return edits[typed.size()][name.size()];
}

} // namespace railwright
