#include "platform/FilePath.h"

#include "platform/NameLookup.h"
#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace railwright::testing {

const bool BackslashParts = PathSeparator() == '\\';

TEST(FilePath, HasANameAndAFolder) {
    const auto path = [](const char* given) { return FilePath::FromUser(given); };
    for (const auto& [whole, folder] :
         {std::pair("a", ""), {"/a", "/"}, {"a/b", "a"}, {"a/b//", "a"}, {"a//b", "a"}, {"/", ""}, {"", ""}})
        EXPECT_EQ(path(whole).Folder(), path(folder)) << whole;
    for (const auto& [folder, whole] : {std::pair("", "b"), {"/", "/b"}, {"a", "a/b"}, {"a/", "a/b"}})
        EXPECT_EQ(path(folder) / FileName("b"), path(whole)) << folder;
    EXPECT_EQ(path("a\\b").Name(), FileName(BackslashParts ? "b" : "a\\b"));
    EXPECT_EQ(FilePath::FromWindowsForm("a\\b/c"), path("a/b/c"));
    EXPECT_EQ(FilePath::FromWindowsForm("C:\\a\\b").InWindowsForm(), "C:\\a\\b");
    EXPECT_EQ(path("C:\\a").Folder(), path(BackslashParts ? "C:\\" : ""));
    EXPECT_EQ(path("").AsFolder().InWindowsForm() + path("a/").AsFolder().InWindowsForm(), "\\a\\");
}

TEST(DocumentPath, StaysBelowItsFolder) {
    const FilePath folder = FilePath::FromUser("f");
    EXPECT_EQ(DocumentPath("a\\.\\\\b/c\xE9").In(folder), FilePath::FromUser("f/a/b/c\u00E9"));
    for (const char* path : {"..", "a\\..\\b", "a/../b", "C:a", "a:b"})
        EXPECT_FALSE(DocumentPath(path).StaysBelow()) << path;
    EXPECT_FALSE(DocumentPath(text("a\0b", 3)).StaysBelow());
    for (const char* path : {"", "...", "a\\..b\\c.."})
        EXPECT_TRUE(DocumentPath(path).StaysBelow()) << path;
}

TEST(NameLookup, FindsNamesInAnyCaseAndTheSameEachTime) {
    const TemporaryFolder folder;
    const FilePath start = folder.Inside("");
    std::filesystem::create_directory(folder.File("Sky"));
    for (const char8_t* name : {u8"Sky/\u00C4.bmp", u8"Sky/b.bmp", u8"Sky/\u4E00.bmp"})
        WriteBytes(folder.Path() / name, {});
    if (!BackslashParts) // Windows ignores case, so these would be the same file
        for (const char* name : {"Sky/B.BMP", "Sky/B.bMP", "Sky/c.BMP", "Sky/c.bmp", "Sky/x\\b.bmp"})
            WriteBytes(folder.File(name), {});
    NameLookup lookup;
    const std::pair<const char*, const char*> cases[] = {
        {"sky\\b.bmp", "Sky/b.bmp"},                                // an exact match wins
        {"SKY\\B.bmp", BackslashParts ? "Sky/b.bmp" : "Sky/B.BMP"}, // first in byte order
        {"sky\\\xE4.BMP", "Sky/\u00C4.bmp"},
        {"sky\\?.bmp", "Sky/?.bmp"}, // a character outside the code page is never found
        {"sky\\x\\b.bmp", "Sky/x/b.bmp"},
        {"sky\\X\\B.bmp", "Sky/x/B.bmp"}, // a missing folder keeps the case of its first lookup
    };
    for (const auto& [path, place] : cases)
        EXPECT_EQ(lookup.Find(start, DocumentPath(path)), folder.Inside(place)) << path;
    EXPECT_TRUE(lookup.IsComplete());
    FailingFiles files;
    files.FailAt = 1; // the folder exists but cannot be listed
    NameLookup unsure;
    EXPECT_TRUE(unsure.Find(start, FileName("Sky")) == folder.Inside("Sky") && !unsure.IsComplete());
}

} // namespace railwright::testing
