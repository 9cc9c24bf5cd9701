#include "platform/WholeFile.h"

#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mount.h>
#include <unistd.h>
#endif

namespace railwright {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<unsigned char>;
using Names = std::vector<std::string>;
using testing::FailingFiles;
using testing::ReadBytes;
using testing::TemporaryFolder;
using testing::WriteBytes;

const Bytes Old(180, 'o');
const Bytes New(250, 'n');

/// Saves New over a file, or where there is none, with each call failing in turn.
/// @return the number of failures gone through.
int FailEveryCallOnce(bool oldFile, bool inPlace, bool writesNothing) {
    for (int failing = 1;; ++failing) {
        const TemporaryFolder folder;
        const Names before = oldFile ? Names{"a.nltrack"} : Names{};
        if (oldFile)
            WriteBytes(folder.File("a.nltrack"), Old);
        FailingFiles files;
        files.FailAt = failing;
        files.WritesNothing = writesNothing;
        files.LongestWrite = 100;
        files.OpenNewError = inPlace ? std::errc::permission_denied : std::errc{};
        const FileResult saved = WriteWholeFile(folder.Inside("a.nltrack"), New);
        if (saved) {
            EXPECT_LT(files.Calls, failing) << "a failure was not reported";
            EXPECT_EQ(ReadBytes(folder.File("a.nltrack")), New);
            EXPECT_EQ(folder.Names(), Names{"a.nltrack"});
            return failing - 1;
        }
        EXPECT_NE(saved.Reason, "");
        EXPECT_EQ(folder.Names(), before) << failing;
        EXPECT_EQ(ReadBytes(folder.File("a.nltrack")), oldFile ? Old : Bytes{}) << failing;
    }
}

TEST(WholeFile, SaveThatFailsLeavesWhatWasThere) {
    for (const bool writesNothing : {false, true}) {
        // Open, three writes of 100, 100 and 50 bytes, cut off, flush, close, rename.
        EXPECT_EQ(FailEveryCallOnce(true, false, writesNothing), 8);
        EXPECT_EQ(FailEveryCallOnce(false, false, writesNothing), 8);
        // Open and read the old content in one go, then the same but the rename.
        EXPECT_EQ(FailEveryCallOnce(true, true, writesNothing), 9);
    }
}

TEST(WholeFile, OnlyAClosedFolderIsAnsweredByWritingInPlace) {
    const TemporaryFolder folder;
    WriteBytes(folder.File("a.nltrack"), New);
    for (const auto closed : {std::errc::permission_denied, std::errc::operation_not_permitted,
                              std::errc::read_only_file_system}) {
        FailingFiles files;
        files.OpenNewError = closed;
        EXPECT_TRUE(WriteWholeFile(folder.Inside("a.nltrack"), Old)); // the shorter over the longer
        EXPECT_EQ(ReadBytes(folder.File("a.nltrack")), Old);
        EXPECT_FALSE(WriteWholeFile(folder.Inside("other.nltrack"), Old));
    }
    FailingFiles files;
    files.OpenNewError = std::errc::no_space_on_device;
    EXPECT_FALSE(WriteWholeFile(folder.Inside("a.nltrack"), New));
    EXPECT_EQ(ReadBytes(folder.File("a.nltrack")), Old);
    EXPECT_EQ(folder.Names(), Names{"a.nltrack"});
}

#ifndef _WIN32 // there, links and rights of users need an administrator, and names have no case of their own
TEST(WholeFile, FollowsLinksAndKeepsPermissions) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() / "kept");
    const fs::path real = folder.Path() / "kept" / "real.nltrack";
    WriteBytes(real, Old);
    fs::permissions(real, static_cast<fs::perms>(0640));
    fs::create_symlink("kept/real.nltrack", folder.File("second.nltrack"));
    fs::create_symlink("second.nltrack", folder.File("first.nltrack"));
    fs::create_symlink("kept/fresh.nltrack", folder.File("dangling.nltrack"));
    EXPECT_TRUE(WriteWholeFile(folder.Inside("first.nltrack"), New));
    EXPECT_TRUE(WriteWholeFile(folder.Inside("dangling.nltrack"), Old));
    for (const char* link : {"first.nltrack", "second.nltrack", "dangling.nltrack"})
        EXPECT_TRUE(fs::is_symlink(folder.File(link))) << link;
    EXPECT_FALSE(fs::is_symlink(real));
    EXPECT_EQ(ReadBytes(real), New);
    EXPECT_EQ(fs::status(real).permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(ReadBytes(folder.Path() / "kept" / "fresh.nltrack"), Old);
}

TEST(WholeFile, RefusesFoldersAndReportsAFullDevice) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("a.nltrack"));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("a.nltrack"), New));
    EXPECT_TRUE(fs::is_directory(folder.File("a.nltrack")));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("missing\\a.nltrack"), New));
    fs::create_symlink("/dev/full", folder.File("full.nltrack"));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("full.nltrack"), New));
    EXPECT_TRUE(fs::is_symlink(folder.File("full.nltrack")));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(folder.Names(), (Names{"a.nltrack", "full.nltrack"}));
}

TEST(WholeFile, KeepsTheOldFileOnAFullDisk) {
    const TemporaryFolder folder;
    const fs::path disk = folder.Path() / "disk";
    fs::create_directory(disk);
    if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    WriteBytes(disk / "a.nltrack", Old);
    const FileResult saved = WriteWholeFile(folder.Inside("disk\\a.nltrack"), Bytes(100'000, 'n'));
    const auto names = std::distance(fs::directory_iterator(disk), fs::directory_iterator());
    const Bytes kept = ReadBytes(disk / "a.nltrack");
    umount(disk.c_str());
    EXPECT_FALSE(saved);
    EXPECT_EQ(kept, Old);
    EXPECT_EQ(names, 1);
}

constexpr uid_t Nobody = 65534;

/// Saves New as a user to whom permissions apply, and ends the process: 0 if it was saved, 1 if not.
[[noreturn]] void SaveAsNobody(const std::string& path) {
    if (geteuid() == 0 && setresuid(Nobody, Nobody, Nobody) != 0)
        std::_Exit(2);
    std::_Exit(WriteWholeFile(path, New) ? 0 : 1);
}

TEST(WholeFileDeathTest, HeedsPermissions) {
    const TemporaryFolder folder;
    const fs::path open = folder.Path() / "open";
    const fs::path closed = folder.Path() / "closed";
    for (const fs::path& place : {open, closed}) {
        fs::create_directory(place);
        WriteBytes(place / "a.nltrack", Old);
    }
    fs::permissions(open, static_cast<fs::perms>(0777));
    fs::permissions(open / "a.nltrack", static_cast<fs::perms>(0444));
    fs::permissions(closed / "a.nltrack", static_cast<fs::perms>(0666));
    fs::permissions(closed, static_cast<fs::perms>(0555));
    EXPECT_EXIT(SaveAsNobody(folder.Inside("open\\a.nltrack")), ::testing::ExitedWithCode(1), "");
    EXPECT_EXIT(SaveAsNobody(folder.Inside("closed\\a.nltrack")), ::testing::ExitedWithCode(0), "");
    EXPECT_EXIT(SaveAsNobody(folder.Inside("closed\\b.nltrack")), ::testing::ExitedWithCode(1), "");
    EXPECT_EQ(ReadBytes(open / "a.nltrack"), Old) << "write-protected";
    EXPECT_EQ(ReadBytes(closed / "a.nltrack"), New) << "overwritten in place";
    EXPECT_FALSE(fs::exists(closed / "b.nltrack"));
    fs::permissions(closed, static_cast<fs::perms>(0755));
}

TEST(WholeFile, NewNamesAreMadeAsTheyAreGiven) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("Tracks"));
    WriteBytes(folder.File("Tracks/\u00C4ltere.NLTRACK"), Old);
    EXPECT_TRUE(WriteWholeFile(folder.Inside("tracks\\\u00E4ltere.nltrack"), New));
    EXPECT_EQ(ReadBytes(folder.File("Tracks/\u00C4ltere.NLTRACK")), Old);
    EXPECT_EQ(ReadBytes(folder.File("Tracks/\u00E4ltere.nltrack")), New);
}

TEST(WholeFile, ADotHidesAFile) {
    const TemporaryFolder folder;
    WriteBytes(folder.File(".hidden"), Old);
    EXPECT_FALSE(FileExists(folder.Inside(".hidden")));
}
#else
TEST(WholeFile, AttributesHideAndProtectAFile) {
    struct Case {
        DWORD Attribute;
        bool Exists;
        bool Written;
    };
    for (const auto& [attribute, exists, written] :
         {Case{FILE_ATTRIBUTE_NORMAL, true, true}, Case{FILE_ATTRIBUTE_HIDDEN, false, true},
          Case{FILE_ATTRIBUTE_SYSTEM, false, true}, Case{FILE_ATTRIBUTE_READONLY, true, false}}) {
        const TemporaryFolder folder;
        const std::string file = folder.File("a.nltrack");
        WriteBytes(file, Old);
        ASSERT_TRUE(SetFileAttributesA(file.c_str(), attribute));
        EXPECT_EQ(FileExists(folder.Inside("a.nltrack")), exists) << attribute;
        EXPECT_EQ(bool(WriteWholeFile(folder.Inside("a.nltrack"), New)), written) << attribute;
        EXPECT_EQ(ReadBytes(file), written ? New : Old) << attribute;
        EXPECT_EQ(folder.Names(), Names{"a.nltrack"});
        SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}
#endif

TEST(WholeFile, NamesAreFoundInAnyCase) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("Tracks"));
    WriteBytes(folder.Path() / u8"Tracks" / u8"\u00C4ltere.NLTRACK", Old);
    EXPECT_TRUE(FileExists(folder.Inside("tracks\\\u00E4LTERE.nltrack")));
    EXPECT_FALSE(FileExists(folder.Inside("tracks\\altere.nltrack")));
    EXPECT_FALSE(FileExists(folder.Inside("Tracks")));
    EXPECT_EQ(FileLength(folder.Inside("TRACKS\\\u00C4ltere.nltrack")), 180);

    Bytes read;
    EXPECT_TRUE(ReadWholeFile(folder.Inside("TRACKS\\\u00E4ltere.nltrack"), 1, read));
    Bytes withSpare = Old;
    withSpare.push_back(0);
    EXPECT_EQ(read, withSpare);
    EXPECT_FALSE(ReadWholeFile(folder.Inside("none"), 1, read));
    EXPECT_EQ(read, Bytes{});
}

TEST(WholeFile, MakesFoldersThatAreMissing) {
    const TemporaryFolder folder;
    EXPECT_TRUE(CreateFolders(folder.Inside("a\\b\\c\\")));
    EXPECT_TRUE(fs::is_directory(folder.File("a/b/c")));
    EXPECT_TRUE(CreateFolders(folder.Inside("A\\B\\d"))) << "below the folder that is there";
    EXPECT_TRUE(fs::is_directory(folder.File("a/b/d")));
    WriteBytes(folder.File("file"), Old);
    EXPECT_FALSE(CreateFolders(folder.Inside("file\\a")));
    EXPECT_FALSE(CreateFolders(folder.Inside("file")));
}

} // namespace
} // namespace railwright
