#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>

namespace railwright {

/// A buffered text output. Passes the text on whenever the fixed-size buffer is full, so that a text of any
/// length uses little memory.
class TextOutput {
public:
    /// Receives the next characters of the text. Its exceptions propagate from the call that filled the
    /// buffer.
    using Taker = std::function<void(std::string_view)>;
    explicit TextOutput(Taker taker) : take(std::move(taker)) {}

    TextOutput& operator<<(std::string_view characters);
    TextOutput& operator<<(char character) {
        *Room(1) = character;
        ++used;
        return *this;
    }
    /// Writes a number in the form of ShortestFloat.
    TextOutput& operator<<(float value);
    TextOutput& operator<<(std::integral auto value) {
        char* const room = Room(LongestNumber);
        used += static_cast<std::size_t>(std::to_chars(room, room + LongestNumber, value).ptr - room);
        return *this;
    }

    /// Passes on the rest of the buffer. Must be called at the end, or the rest is lost.
    void Flush();

private:
    static constexpr std::size_t LongestNumber = 24;

    /// Returns room for `size` characters. `size` must not exceed the buffer's size.
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
