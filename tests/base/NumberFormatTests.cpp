#include "base/NumberFormat.h"

#include <gtest/gtest.h>

#include <limits>

namespace railwright::testing {

TEST(NumberFormat, RoundsAndPrintsTheExactValue) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::tuple<double, const char*, const char*> cases[] = {
        {0, "###,##0", "0"},      {999, "###,##0", "999"},    {-1234567, "###,##0", "-1,234,567"},
        {0.125, "#0.00", "0.13"}, {-0.125, "#0.00", "-0.13"}, {999.995, "###,##0.00", "1,000.00"},
        {-0.004, "0.00", "0.00"}, {7, "000", "007"},          {1234, "000", "1234"},
        {5, "#0.00", "5.00"},     {infinity, "0.00", "inf"},  {infinity - infinity, "0.00", "nan"},
        {2.675, "0.00", "2.67"}}; // the nearest double to the last one is smaller
    for (const auto& [value, pattern, expected] : cases)
        EXPECT_EQ(FormatNumber(value, pattern, {}), expected) << pattern;
    EXPECT_EQ(FormatNumber(1234567.5, "#,##0.00", {"\u00A0", ","}), "1\u00A0234\u00A0567,50");
    EXPECT_EQ(FormatNumber(1234567.5, "#,##0.00", {"", "."}), "1234567.50");
    EXPECT_EQ(RoundToHundredths(0.125), 0.12);
    EXPECT_EQ(RoundToHundredths(-0.375), -0.38);
    EXPECT_EQ(ShortestFloat(0.1F), "0.1");
    EXPECT_EQ(ShortestFloat(16777216.0F), "16777216");
    EXPECT_EQ(ShortestFloat(-std::numeric_limits<float>::infinity()), "-inf");
}

} // namespace railwright::testing
