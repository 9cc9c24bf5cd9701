#include "base/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace railwright {
namespace {

constexpr std::size_t LongestExactDouble = 1100; // digits after the point, and 309 before it

/// Returns the decimal digits of a finite `value` >= 0 without rounding: "12.125000...".
std::string ExactDigits(double value) {
    std::array<char, 2 * LongestExactDouble> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, static_cast<int>(LongestExactDouble));
    return {buffer.data(), end.ptr};
}

/// Adds one to the last digit and carries. Skips the point.
void Increment(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit == '.')
            continue;
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(0, 1, '1');
}

std::string RoundedDigits(double value, std::size_t decimals) {
    if (value < 0x1p63 && value == std::floor(value)) { // many numbers in a report are whole
        std::string whole = std::to_string(static_cast<std::uint64_t>(value));
        return decimals == 0 ? whole : whole + '.' + std::string(decimals, '0');
    }
    std::string digits = ExactDigits(value);
    const std::size_t point = digits.find('.');
    const bool up = digits[point + decimals + 1] >= '5';
    digits.resize(decimals == 0 ? point : point + decimals + 1);
    if (up)
        Increment(digits);
    return digits;
}

std::string NotFinite(double value) {
    if (std::isnan(value))
        return "nan";
    return value < 0 ? "-inf" : "inf";
}

} // namespace

std::string FormatNumber(double value, std::string_view pattern, const NumberSeparators& separators) {
    if (!std::isfinite(value))
        return NotFinite(value);
    const std::size_t patternPoint = std::min(pattern.find('.'), pattern.size());
    const std::string_view wholePattern = pattern.substr(0, patternPoint);
    const std::size_t decimals = pattern.size() - std::min(patternPoint + 1, pattern.size());
    const auto leastDigits =
        static_cast<std::size_t>(std::count(wholePattern.begin(), wholePattern.end(), '0'));
    const bool grouped = wholePattern.find(',') != std::string_view::npos;

    const std::string digits = RoundedDigits(std::fabs(value), decimals);
    std::string whole = digits.substr(0, digits.find('.'));
    if (whole.size() < leastDigits)
        whole.insert(0, leastDigits - whole.size(), '0');
    if (grouped)
        for (std::size_t place = whole.size(); place > 3; place -= 3)
            whole.insert(place - 3, separators.Group);

    const bool isZero = digits.find_first_of("123456789") == std::string::npos;
    std::string formatted = value < 0 && !isZero ? "-" : "";
    formatted += whole;
    if (decimals > 0)
        formatted += separators.Decimal + digits.substr(digits.size() - decimals);
    return formatted;
}

double RoundToHundredths(double value) {
    return std::isfinite(value * 100) ? std::nearbyint(value * 100) / 100 : value;
}

std::string ShortestFloat(float value) {
    if (!std::isfinite(value))
        return NotFinite(static_cast<double>(value));
    std::array<char, 32> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

} // namespace railwright
