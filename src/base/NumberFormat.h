#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// The characters between the thousands and before the decimals of a number, as UTF-8. With an empty group
/// separator thousands are not separated.
struct NumberSeparators {
    std::string Group = ",";
    std::string Decimal = ".";
};

/// Formats a number by a pattern such as "###,###,##0.00".
///
/// In the pattern, "0" is a digit that is always printed, "#" a digit that is printed if the number has it,
/// "." starts the decimals, and a "," anywhere before it separates the thousands. The exact value is rounded
/// to the decimals of the pattern, halves away from zero. A number that rounds to zero has no minus sign. A
/// number that is not finite prints as "inf", "-inf" or "nan".
std::string FormatNumber(double value, std::string_view pattern, const NumberSeparators& separators);

/// @return `value` rounded to two decimals, ties to even; a value that is not finite is returned unchanged.
double RoundToHundredths(double value);

/// @return `value` in the fewest digits that read back as the same 32-bit float, always with "." as decimal
/// separator; "nan", "inf" or "-inf" where it is not finite.
std::string ShortestFloat(float value);

} // namespace railwright
