#include "platform/WholeFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <unistd.h>

namespace railwright::testing {

namespace fs = std::filesystem;

TEST(WholeFile, FollowsLinksAndKeepsPermissions) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("kept"));
    const fs::path real = folder.File("kept/real");
    WriteBytes(real, Old);
    fs::permissions(real, static_cast<fs::perms>(0640));
    fs::create_symlink("kept/real", folder.File("second"));
    fs::create_symlink("second", folder.File("first"));
    fs::create_symlink("kept/fresh", folder.File("dangling"));
    EXPECT_TRUE(WriteWholeFile(folder.Inside("first"), New));
    EXPECT_TRUE(WriteWholeFile(folder.Inside("dangling"), Old));
    for (const char* link : {"first", "second", "dangling"})
        EXPECT_TRUE(fs::is_symlink(folder.File(link))) << link;
    EXPECT_EQ(fs::symlink_status(real).permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(ReadBytes(real), New);
    EXPECT_EQ(ReadBytes(folder.File("kept/fresh")), Old);
}

TEST(WholeFile, RefusesFoldersAndReportsFullDevicesAndDisks) {
    const TemporaryFolder folder;
    const fs::path disk = folder.File("disk");
    fs::create_directory(disk);
    fs::create_symlink("/dev/full", folder.File("full"));
    for (const char* name : {"disk", "missing\\a", "full"})
        EXPECT_FALSE(WriteWholeFile(folder.Inside(name), New)) << name;
    EXPECT_TRUE(fs::is_symlink(folder.File("full")) && fs::is_character_file("/dev/full"));
    EXPECT_EQ(folder.Names(), (Names{"disk", "full"}));

    if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    WriteBytes(disk / "a", Old);
    EXPECT_FALSE(WriteWholeFile(folder.Inside("disk\\a"), Bytes(100'000, 'n')));
    EXPECT_EQ(ReadBytes(disk / "a"), Old);
    EXPECT_EQ(std::distance(fs::directory_iterator(disk), fs::directory_iterator()), 1);
    umount(disk.c_str());
}

TEST(WholeFileDeathTest, HeedsPermissions) {
    const TemporaryFolder folder;
    for (const auto& [name, ofFolder, ofFile] : {std::tuple("open", 0777, 0444), {"closed", 0555, 0666}}) {
        const fs::path place = folder.Path() / name;
        fs::create_directory(place);
        WriteBytes(place / "a", Old);
        fs::permissions(place / "a", static_cast<fs::perms>(ofFile));
        fs::permissions(place, static_cast<fs::perms>(ofFolder));
    }
    const auto saveAsNobody = [&](const char* name) { // 0 if it was saved, 1 if not
        if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0)
            std::_Exit(2);
        std::_Exit(WriteWholeFile(folder.Inside(name), New) ? 0 : 1);
    };
    for (const auto& [name, answer] : {std::pair("open\\a", 1), {"closed\\a", 0}, {"closed\\b", 1}})
        EXPECT_EXIT(saveAsNobody(name), ::testing::ExitedWithCode(answer), "") << name;
    EXPECT_EQ(ReadBytes(folder.File("open/a")), Old);
    EXPECT_EQ(ReadBytes(folder.File("closed/a")), New);
    EXPECT_FALSE(fs::exists(folder.File("closed/b")));
    fs::permissions(folder.File("closed"), static_cast<fs::perms>(0755));
}

TEST(WholeFile, NamesAreFoundInAnyCaseAndMadeAsTheyAreGiven) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("Tracks"));
    WriteBytes(folder.File("Tracks/\u00C4ltere.NLTRACK"), Old);
    WriteBytes(folder.File(".hidden"), Old);
    for (const char* name : {"tracks\\altere.nltrack", ".hidden", "Tracks"})
        EXPECT_FALSE(FileExists(folder.Inside(name))) << name;
    EXPECT_TRUE(FileExists(folder.Inside("tracks\\\u00E4LTERE.nltrack")));
    EXPECT_EQ(FileLength(folder.Inside("TRACKS\\\u00C4ltere.nltrack")), 180);
    Bytes read;
    EXPECT_TRUE(ReadWholeFile(folder.Inside("TRACKS\\\u00E4ltere.nltrack"), read));
    EXPECT_EQ(read.size(), 180U);
    EXPECT_TRUE(!ReadWholeFile(folder.Inside("none"), read) && read.empty());
    EXPECT_TRUE(WriteWholeFile(folder.Inside("tracks\\\u00E4ltere.nltrack"), New));
    EXPECT_EQ(ReadBytes(folder.File("Tracks/\u00C4ltere.NLTRACK")), Old);
    EXPECT_EQ(ReadBytes(folder.File("Tracks/\u00E4ltere.nltrack")), New);
    EXPECT_TRUE(CreateFolders(folder.Inside("a\\b\\c\\")) && CreateFolders(folder.Inside("A\\B\\d")));
    EXPECT_TRUE(fs::is_directory(folder.File("a/b/c")) && fs::is_directory(folder.File("a/b/d")));
    for (const char* name : {".hidden\\a", ".hidden"}) // a file
        EXPECT_FALSE(CreateFolders(folder.Inside(name))) << name;
}

} // namespace railwright::testing
