#include "base/FileName.h"

#include <gtest/gtest.h>

namespace railwright::testing {

TEST(FileName, EndsInAnExtensionAndLosesOne) {
    for (const char* name : {"a.nltrack", "C:\\b\\a.NlTRACK", ".nltrack"})
        EXPECT_TRUE(HasExtension(name, TrackExtension)) << name;
    for (const char* name : {"", "nltrack", "a.nltrac", "a.nltrack ", "a.nltrack\\b", "a.nlelem"})
        EXPECT_FALSE(HasExtension(name, TrackExtension)) << name;
    EXPECT_EQ(WithoutEvery("a.3DS.3ds", ".3ds"), "a");
    EXPECT_EQ(WithoutEvery("a.3.3dsds.3d", ".3ds"), "a.3ds.3d"); // the removal leaves another ".3ds"
}

} // namespace railwright::testing
