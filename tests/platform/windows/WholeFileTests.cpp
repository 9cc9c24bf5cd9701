#include "platform/WholeFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace railwright::testing {

namespace fs = std::filesystem;

TEST(WholeFile, AttributesHideAndProtectAFile) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    for (const auto& [attribute, exists, written] : {std::tuple(FILE_ATTRIBUTE_NORMAL, true, true),
                                                     {FILE_ATTRIBUTE_HIDDEN, false, true},
                                                     {FILE_ATTRIBUTE_SYSTEM, false, true},
                                                     {FILE_ATTRIBUTE_READONLY, true, false}}) {
        SCOPED_TRACE(attribute);
        WriteBytes(file, Old);
        ASSERT_TRUE(SetFileAttributesA(file.c_str(), static_cast<DWORD>(attribute)));
        EXPECT_EQ(FileExists(folder.Inside("a")), exists);
        EXPECT_EQ(WriteWholeFile(folder.Inside("a"), New).Done, written);
        SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        EXPECT_EQ(ReadBytes(file), written ? New : Old);
        EXPECT_EQ(folder.Names(), Names{"a"});
    }
    fs::create_directory(folder.File("taken"));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("taken"), New));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("missing\\a"), New));
}

TEST(WholeFile, NamesAreUtf8InAnyCase) {
    const TemporaryFolder folder;
    const std::string inside = folder.Inside("TRACKS") + '\\';
    EXPECT_TRUE(CreateFolders(folder.Inside("Tracks\\a")) && CreateFolders(inside + "A\\b"));
    WriteBytes(folder.Path() / u8"Tracks" / u8"\u00C4ltere.NLTRACK", Old);
    EXPECT_EQ(FileLength(inside + "\u00E4ltere.nltrack"), 180);
    EXPECT_FALSE(FileExists(inside + "altere.nltrack"));
    EXPECT_TRUE(WriteWholeFile(inside + "\u00E4LTERE.nltrack", New));
    EXPECT_EQ(FileLength(inside + "\u00C4ltere.NLTRACK"), 250);
    Bytes read;
    EXPECT_TRUE(ReadWholeFile(inside + "\u00C4LTERE.nltrack", read) && read.size() == 250);
}

} // namespace railwright::testing
