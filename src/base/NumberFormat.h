#pragma once

#include <string>
#include <string_view>

namespace railwright {

/// The thousands separator and the decimal separator of numbers, as UTF-8. An empty group separator disables
/// grouping.
struct NumberSeparators {
    std::string Group = ",";
    std::string Decimal = ".";
};

/// Formats a number by a pattern such as "###,###,##0.00".
///
/// In the pattern, "0" is a digit that is always printed, and "#" a digit that is printed if the number has
/// it. "." starts the decimals. A "," anywhere before it separates the thousands.
///
/// The exact value is rounded to the decimals of the pattern, halves away from zero. A number that rounds to
/// zero has no minus sign. Other results are "inf", "-inf" and "nan".
std::string FormatNumber(double value, std::string_view pattern, const NumberSeparators& separators);

/// Returns `value` rounded to two decimals, ties to even. Returns a non-finite value unchanged.
double RoundToHundredths(double value);

/// Returns the shortest decimal that parses as the same 32-bit float. The decimal separator is always ".".
/// Non-finite values are "nan", "inf" or "-inf".
std::string ShortestFloat(float value);

} // namespace railwright
