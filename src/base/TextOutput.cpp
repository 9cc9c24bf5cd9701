#include "base/TextOutput.h"

#include "base/NumberFormat.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace railwright {

TextOutput& TextOutput::operator<<(std::string_view characters) {
    while (!characters.empty()) {
        char* const room = Room(1);
        const std::size_t piece = std::min(characters.size(), window.size() - used);
        std::memcpy(room, characters.data(), piece);
        used += piece;
        characters.remove_prefix(piece);
    }
    return *this;
}

TextOutput& TextOutput::operator<<(float value) {
    return *this << std::string_view(ShortestFloat(value));
}

void TextOutput::Flush() {
    take({window.data(), std::exchange(used, 0)});
}

} // namespace railwright
