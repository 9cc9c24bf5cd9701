#include "platform/UserLocale.h"

#include <gtest/gtest.h>

#include <langinfo.h>

/// The user's locale, returned by a replacement for the system's function.
static std::string codeset, thousands, decimal = ".";

extern "C" char* nl_langinfo_l(nl_item item, locale_t) {
    return item == CODESET ? codeset.data() : item == THOUSEP ? thousands.data() : decimal.data();
}

namespace railwright::testing {

TEST(UserLocale, GivesSeparatorsThatEveryFontHas) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"UTF-8", "\u202F", ",", "\u00A0", ","},    // narrow no-break space
        {"UTF-8", "\u2009", ",", "\u00A0", ","},    // thin space
        {"UTF-8", "\u2019", ".", "\u2019", "."},    // apostrophe
        {"UTF-8", ".", "\u066B", ".", "\u066B"},    // Arabic
        {"ISO-8859-1", "\xA0", ",", "\u00A0", ","}, // not in UTF-8
        {"UTF-8", "", ",", "", ","},                // thousands are not separated
        {"ANSI_X3.4-1968", "", ".", ",", "."}};     // no locale at all
    for (const auto& [set, group, point, shownGroup, shownPoint] : cases) {
        codeset = set, thousands = group, decimal = point;
        const NumberSeparators user = UserNumberSeparators();
        EXPECT_EQ(user.Group, shownGroup) << group;
        EXPECT_EQ(user.Decimal, shownPoint) << point;
    }
}

} // namespace railwright::testing
