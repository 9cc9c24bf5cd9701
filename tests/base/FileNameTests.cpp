#include "base/FileName.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

TEST(FileName, ExtensionIsTheLastCharactersInAnyCase) {
    for (const char* name : {"a.nltrack", "a.NLTRACK", "C:\\b\\a.NlTrack", ".nltrack"})
        EXPECT_TRUE(HasExtension(name, TrackExtension)) << name;
    for (const char* name : {"", "nltrack", "a.nltrac", "a.nltrack ", "a.nltrack\\b", "a.nlelem"})
        EXPECT_FALSE(HasExtension(name, TrackExtension)) << name;
}

TEST(FileName, SplitsBehindTheLastBackslash) {
    EXPECT_EQ(BaseName("C:\\a\\b.txt"), "b.txt");
    EXPECT_EQ(FolderOf("C:\\a\\b.txt"), "C:\\a\\");
    EXPECT_EQ(BaseName("b.txt"), "b.txt");
    EXPECT_EQ(FolderOf("b.txt"), "");
    EXPECT_EQ(BaseName("a\\"), "");
}

TEST(FileName, RemovesEveryOccurrenceInOnePass) {
    EXPECT_EQ(WithoutEvery("a.3DS.3ds", ".3ds"), "a");
    EXPECT_EQ(WithoutEvery("a.3.3dsds", ".3ds"), "a.3ds"); // comes together only by the removal
    EXPECT_EQ(WithoutEvery("a.3d", ".3ds"), "a.3d");
}

} // namespace
} // namespace railwright
