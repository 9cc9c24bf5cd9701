#include "base/FileName.h"

#include <algorithm>

namespace railwright {

bool SameIgnoringCase(std::string_view name, std::string_view lowerCase) {
    return std::equal(name.begin(), name.end(), lowerCase.begin(), lowerCase.end(), [](char a, char lower) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a + 0x20) : a) == lower;
    });
}

bool HasExtension(std::string_view path, std::string_view extension) {
    return path.size() >= extension.size() &&
           SameIgnoringCase(path.substr(path.size() - extension.size()), extension);
}

std::string WithoutEvery(std::string_view name, std::string_view piece) {
    std::string kept;
    while (!name.empty()) {
        if (SameIgnoringCase(name.substr(0, piece.size()), piece)) {
            name.remove_prefix(piece.size());
        } else {
            kept += name.front();
            name.remove_prefix(1);
        }
    }
    return kept;
}

} // namespace railwright
