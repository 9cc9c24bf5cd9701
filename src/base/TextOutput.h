#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>

namespace railwright {

/// A text on its way out. It is gathered in a window of fixed size and handed on whenever that is full, so
/// that a text of any length takes little memory.
class TextOutput {
public:
    /// Takes the next characters of the text. What it throws comes out of the call that has filled the
    /// window.
    using Taker = std::function<void(std::string_view)>;
    explicit TextOutput(Taker taker) : take(std::move(taker)) {}

    TextOutput& operator<<(std::string_view characters);
    TextOutput& operator<<(char character) {
        *Room(1) = character;
        ++used;
        return *this;
    }
    /// A number as ShortestFloat has it.
    TextOutput& operator<<(float value);
    TextOutput& operator<<(std::integral auto value) {
        char* const room = Room(LongestNumber);
        used += static_cast<std::size_t>(std::to_chars(room, room + LongestNumber, value).ptr - room);
        return *this;
    }

    /// Hands on what is still in the window. Nobody else does: what is not flushed is lost.
    void Flush();

private:
    static constexpr std::size_t LongestNumber = 24;

    /// @return where as many characters, at most the window's size, can be put.
    char* Room(std::size_t size) {
        if (window.size() - used < size)
            Flush();
        return window.data() + used;
    }

    Taker take;
    std::size_t used = 0;
    std::array<char, std::size_t{16} * 1024> window;
};

} // namespace railwright
