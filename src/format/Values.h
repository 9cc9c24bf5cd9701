#pragma once

#include "base/Types.h"
#include "format/FileBytes.h"

#include <array>
#include <concepts>
#include <cstring>
#include <type_traits>

namespace railwright {

/// Accepts a record that a reader fills, and a const record that a writer saves.
template <class T, class Record>
concept RecordOf = std::same_as<std::remove_const_t<T>, Record>;

/// Three directions for the values of a record with a fixed layout: ValueReader reads them, ValueWriter
/// writes them, ValueCounter adds up their size. All have the same members, so each layout is written once,
/// as a function template over the direction. The caller must check first that there are enough bytes.

class ValueReader {
public:
    explicit ValueReader(const std::uint8_t* first) : at(first) {}

    void Byte(std::uint8_t& value) { value = *Passed(FileSize::Byte); }
    void Flag8(Flag& value) { value = *Passed(FileSize::Byte) != 0; }
    void Long(std::int32_t& value) { value = ReadLong(Passed(FileSize::Long)); }
    void Single(float& value) { value = ReadSingle(Passed(FileSize::Single)); }
    void Color(ColorValue& value) { value = ReadColor(Passed(FileSize::Color)); }
    void Zeros(FilePos count) { Passed(count); }
    /// The version bytes of the file, kept as they are.
    void Version(std::array<std::uint8_t, 4>& bytes) { std::memcpy(bytes.data(), Passed(4), 4); }
    void Vector(Vector3& value) {
        Single(value.X);
        Single(value.Y);
        Single(value.Z);
    }

private:
    const std::uint8_t* Passed(FilePos count) {
        const std::uint8_t* const here = at;
        at += count;
        return here;
    }

    const std::uint8_t* at;
};

/// Writes into zeroed bytes.
class ValueWriter {
public:
    explicit ValueWriter(std::uint8_t* first) : at(first) {}

    void Byte(std::uint8_t value) { *Passed(FileSize::Byte) = value; }
    void Flag8(Flag value) { *Passed(FileSize::Byte) = value ? 0xFF : 0x00; }
    void Long(std::int32_t value) { WriteLong(Passed(FileSize::Long), value); }
    void Single(float value) { WriteSingle(Passed(FileSize::Single), value); }
    void Color(ColorValue value) { WriteColor(Passed(FileSize::Color), value); }
    void Zeros(FilePos count) { Passed(count); }
    /// Writes the program's own version, not the one that was read.
    void Version(const std::array<std::uint8_t, 4>&) {
        constexpr std::array<std::uint8_t, 4> written = {1, 3, 0, 0};
        std::memcpy(Passed(4), written.data(), 4);
    }
    void Vector(const Vector3& value) {
        Single(value.X);
        Single(value.Y);
        Single(value.Z);
    }

private:
    std::uint8_t* Passed(FilePos count) {
        std::uint8_t* const here = at;
        at += count;
        return here;
    }

    std::uint8_t* at;
};

class ValueCounter {
public:
    /// The sum so far.
    FilePos Bytes() const { return bytes; }

    void Byte(std::uint8_t) { bytes += FileSize::Byte; }
    void Flag8(Flag) { bytes += FileSize::Byte; }
    void Long(std::int32_t) { bytes += FileSize::Long; }
    void Single(float) { bytes += FileSize::Single; }
    void Color(ColorValue) { bytes += FileSize::Color; }
    void Zeros(FilePos count) { bytes += count; }
    void Version(const std::array<std::uint8_t, 4>&) { bytes += 4; }
    void Vector(const Vector3&) { bytes += 3 * FileSize::Single; }

private:
    FilePos bytes = 0;
};

/// @return the size in bytes of the values that `values` names.
template <class Layout>
FilePos SizeOfGroup(Layout&& values) {
    ValueCounter counter;
    values(counter);
    return counter.Bytes();
}

} // namespace railwright
