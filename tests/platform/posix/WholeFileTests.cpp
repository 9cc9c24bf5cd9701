#include "platform/WholeFile.h"

#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <grp.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

/// A file that is checked at every flush, and the results.
static std::string watched;
static railwright::testing::Names flushes;

/// Replaces the system's fsync. Records the length of the flushed file, and that of the watched file.
extern "C" int fsync(int descriptor) {
    struct stat flushed {
    }, seen{};
    if (!watched.empty() && fstat(descriptor, &flushed) == 0 && stat(watched.c_str(), &seen) == 0)
        flushes.push_back((S_ISDIR(flushed.st_mode) ? "folder" : std::to_string(flushed.st_size)) + " at " +
                          std::to_string(seen.st_size));
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

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

TEST(WholeFile, GoesToTheDiskBeforeItTakesItsPlaceAndTheFolderGoesThereAfterwards) {
    const TemporaryFolder folder;
    WriteBytes(folder.File("a"), Old);
    watched = folder.File("a");
    EXPECT_TRUE(WriteWholeFile(folder.Inside("a"), New));
    EXPECT_EQ(flushes, (Names{"250 at 180", "folder at 250"}));
    watched.clear();
}

TEST(WholeFile, RefusesInWordsWhatIsNoFileAndReportsFullDisks) {
    const TemporaryFolder folder;
    const fs::path disk = folder.File("disk");
    fs::create_directory(disk);
    fs::create_symlink("/dev/full", folder.File("full"));
    fs::create_symlink("loop", folder.File("other"));
    fs::create_symlink("other", folder.File("loop"));
    ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0666), 0);
    const Names before = folder.Names();
    for (const auto& [name, reason] : {std::pair("disk", "is a folder"),
                                       {"full", "is a device or a pipe, not a file"},
                                       {"pipe", "is a device or a pipe, not a file"},
                                       {"loop", "Too many levels of symbolic links"},
                                       {"missing\\a", "No such file or directory"},
                                       {"", "names no file"},
                                       {"disk\\.", "names no file"},
                                       {"disk\\..", "names no file"}}) {
        const FileResult saved = WriteWholeFile(folder.Inside(name), New);
        EXPECT_TRUE(!saved && saved.Reason.ends_with(reason)) << name << ": " << saved.Reason;
        Bytes bytes;
        EXPECT_FALSE(ReadWholeFile(folder.Inside(name), bytes)) << name;
    }
    EXPECT_EQ(folder.Names(), before);
    EXPECT_TRUE(fs::is_symlink(folder.File("full")) && fs::is_symlink(folder.File("loop")));
    std::error_code error; // unreadable permissions are an error, not those of a new file
    EXPECT_TRUE(!Files().OpenNew(folder.Inside("loop"), folder.Inside("loop"), error) && error &&
                folder.Names() == before);

    if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    WriteBytes(disk / "a", Old);
    EXPECT_FALSE(WriteWholeFile(folder.Inside("disk\\a"), Bytes(100'000, 'n')));
    EXPECT_EQ(ReadBytes(disk / "a"), Old);
    EXPECT_EQ(std::distance(fs::directory_iterator(disk), fs::directory_iterator()), 1);
    umount(disk.c_str());

    // A file that is itself a mount point cannot be replaced.
    WriteBytes(folder.File("source"), Old);
    WriteBytes(folder.File("mounted"), Old);
    if (mount(folder.File("source").c_str(), folder.File("mounted").c_str(), "", MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "no file can be mounted here";
    EXPECT_TRUE(WriteWholeFile(folder.Inside("mounted"), New));
    EXPECT_EQ(ReadBytes(folder.File("source")), New);
    umount(folder.File("mounted").c_str());
}

/// Owner, mode, access list and a user attribute of a file.
struct Rights {
    uid_t Owner;
    gid_t Group;
    mode_t Mode;
    std::string List;
    std::string Note;
    bool operator==(const Rights&) const = default;
};

Rights RightsOf(const std::string& file) {
    struct stat found {};
    stat(file.c_str(), &found);
    const auto attribute = [&](const char* name) {
        char bytes[200];
        const ssize_t size = getxattr(file.c_str(), name, bytes, sizeof bytes);
        return std::string(bytes, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    };
    return {found.st_uid, found.st_gid, found.st_mode & 07777U, attribute("system.posix_acl_access"),
            attribute("user.note")};
}

TEST(WholeFile, LeavesNoTemporaryFileInAnAppendOnlyFolder) {
    const TemporaryFolder folder;
    WriteBytes(folder.File("a"), Old);
    const int opened = open(folder.File("").c_str(), O_RDONLY);
    int flags = 0;
    const auto set = [&](bool isAppendOnly) {
        flags = isAppendOnly ? flags | FS_APPEND_FL : flags & ~FS_APPEND_FL;
        return ioctl(opened, FS_IOC_SETFLAGS, &flags) == 0;
    };
    if (ioctl(opened, FS_IOC_GETFLAGS, &flags) != 0 || !set(true)) {
        close(opened);
        GTEST_SKIP() << "this file system or user cannot make a folder append-only";
    }
    EXPECT_TRUE(WriteWholeFile(folder.Inside("a"), New));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("b"), New));
    EXPECT_EQ(folder.Names(), Names{"a"});
    EXPECT_EQ(ReadBytes(folder.File("a")), New);
    EXPECT_TRUE(set(false));
    close(opened);
}

TEST(WholeFileDeathTest, SignalsCutNoSaveOff) {
    const TemporaryFolder folder, aside;
    FailingFiles files;
    files.Aside = {aside.Inside("")};
    const auto save = [&](bool isInPlace, const FileContent& content) {
        files.OpenNewError = isInPlace ? std::errc::permission_denied : std::errc{};
        std::_Exit(WriteWholeFile(folder.Inside("a"), content) ? 0 : 1);
    };
    for (const bool isInPlace : {false, true}) {
        WriteBytes(folder.File("a"), Old);
        const auto beyondLimit = [&] { // 200 of 250 bytes
            const rlimit limit = {200, 200};
            setrlimit(RLIMIT_FSIZE, &limit);
            save(isInPlace, [](OpenFile& file, std::error_code& error) { WriteAll(file, New, error); });
        };
        EXPECT_EXIT(beyondLimit(), ::testing::ExitedWithCode(1), "");
        EXPECT_EQ(ReadBytes(folder.File("a")), Old);
        EXPECT_TRUE(folder.Names() == Names{"a"} && aside.Names().empty());
    }
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        WriteBytes(folder.File("a"), Old);
        const auto interrupted = [signal](OpenFile& file, std::error_code& error) {
            WriteAll(file, std::span(New).first(100), error);
            kill(getpid(), signal);
            WriteAll(file, std::span(New).subspan(100), error);
        };
        EXPECT_EXIT(save(true, interrupted), ::testing::KilledBySignal(signal), "");
        EXPECT_EQ(ReadBytes(folder.File("a")), New);
        EXPECT_TRUE(aside.Names().empty());
    }
}

TEST(WholeFileDeathTest, OverwritesAFileWhoseOwnerAContainerDoesNotKnow) {
    const TemporaryFolder folder;
    WriteBytes(folder.File("a"), Old);
    if (chown(folder.File("a").c_str(), 12345, 12345) != 0 || chmod(folder.File("a").c_str(), 0666) != 0)
        GTEST_SKIP() << "only root can give files away";
    const auto saveInContainer = [&] { // 0 if it was saved, 1 if not, 2 without containers
        if (unshare(CLONE_NEWUSER) != 0)
            std::_Exit(2);
        for (const auto& [name, content] :
             {std::pair("setgroups", "deny"), {"uid_map", "0 0 1"}, {"gid_map", "0 0 1"}})
            std::ofstream(std::string("/proc/self/") + name) << content;
        std::_Exit(WriteWholeFile(folder.Inside("a"), New) ? 0 : 1);
    };
    if (const pid_t child = fork(); child == 0) {
        saveInContainer();
    } else {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        if (WEXITSTATUS(status) == 2)
            GTEST_SKIP() << "this system allows no user namespaces";
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(ReadBytes(folder.File("a")), New);
    EXPECT_EQ(RightsOf(folder.File("a")).Owner, 12345U);
}

/// An access list of version 2. Each entry is a kind, rights and an id, in 2, 2 and 4 bytes.
std::string AccessList(std::initializer_list<std::array<int, 3>> entries) {
    std::string list("\2\0\0\0", 4);
    for (const auto& [kind, rights, who] : entries)
        for (const int half : {kind, rights, who, who < 0 ? who : 0}) // -1 means no id
            list += {static_cast<char>(half), static_cast<char>(half >> 8)};
    return list;
}

TEST(WholeFile, KeepsOwnerRightsAndAttributes) {
    const TemporaryFolder folder;
    if (chown(folder.File("").c_str(), 0, 0) != 0)
        GTEST_SKIP() << "only root can give files away";
    // Its owner and user 100 may read and write it. Its group and others have no rights.
    const std::string list = AccessList({{1, 6, -1}, {2, 6, 100}, {4, 0, -1}, {16, 6, -1}, {32, 0, -1}});
    const auto give = [](const std::string& to, const char* name, const std::string& value) {
        return setxattr(to.c_str(), name, value.data(), value.size(), 0) == 0;
    };
    if (!give(folder.File(""), "system.posix_acl_default", list))
        GTEST_SKIP() << "this file system has no access lists";
    for (const bool hasList : {false, true})
        for (const mode_t mode : {0600U, 0660U, 0640U, 0604U, 02755U}) {
            const std::string file = folder.File("a");
            WriteBytes(file, Old);
            removexattr(file.c_str(), "system.posix_acl_access"); // inherited from the folder
            ASSERT_TRUE(chown(file.c_str(), 1, 60) == 0 && chmod(file.c_str(), mode) == 0);
            ASSERT_TRUE(!hasList || give(file, "system.posix_acl_access", list));
            ASSERT_TRUE(give(file, "user.note", "mine"));
            const Rights before = RightsOf(file);
            EXPECT_EQ(before.List.empty(), !hasList);
            EXPECT_TRUE(WriteWholeFile(folder.Inside("a"), New));
            EXPECT_EQ(RightsOf(file), before) << mode;
            EXPECT_EQ(ReadBytes(file), New);
            fs::remove(file);
        }
}

TEST(WholeFileDeathTest, GivesNobodyMoreRights) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    if (chown(folder.File("").c_str(), 0, 60) != 0 || chmod(folder.File("").c_str(), 0777) != 0)
        GTEST_SKIP() << "only root can give files away";
    const auto saveAs = [&](gid_t group) { // a user in that group only
        if (setgroups(1, &group) != 0 || setresgid(65534, 65534, 65534) != 0 ||
            setresuid(65534, 65534, 65534) != 0)
            std::_Exit(2);
        std::_Exit(WriteWholeFile(folder.Inside("a"), New) ? 0 : 1);
    };
    const std::string leftover = folder.File(".railwright-12-34.tmp"); // left by another user's save
    WriteBytes(leftover, Old);
    chmod(leftover.c_str(), 0666);
    for (const auto& [group, mode, owner, ofFolder] :
         {std::tuple(60U, 0660U, 65534U, 0777U), // the group is kept,
          {60U, 0064U, 1U, 0777U},               // not if the owner would then be in it,
          {60U, 0661U, 1U, 0777U},               // or one of the others;
          {60U, 0660U, 1U, 01777U},              // a sticky folder forbids replacing another's file;
          {61U, 0666U, 1U, 0777U}}) {            // nothing can be kept: written in place
        chmod(folder.File("").c_str(), ofFolder);
        WriteBytes(file, Old);
        ASSERT_TRUE(chown(file.c_str(), 1, 60) == 0 && chmod(file.c_str(), mode) == 0);
        EXPECT_EXIT(saveAs(group), ::testing::ExitedWithCode(0), "") << mode;
        EXPECT_EQ(RightsOf(file), (Rights{owner, 60, mode, "", ""}));
        EXPECT_EQ(ReadBytes(file), New);
        fs::remove(file);
    }
    EXPECT_TRUE(fs::exists(leftover));
    std::error_code error; // only the owner may access a copy
    EXPECT_TRUE(Files().OpenCopy(folder.Inside("copy"), error));
    EXPECT_EQ(RightsOf(folder.File("copy")).Mode, 0600U);
}

TEST(WholeFile, ANewFileHasNoNameAndLeftoversAreClearedAway) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    std::error_code error;
    auto begun = Files().OpenNew(folder.Inside("a"), {}, error);
    const int nameless = open(folder.File("").c_str(), O_TMPFILE | O_WRONLY, 0600);
    EXPECT_EQ(folder.Names().size(), nameless >= 0 ? 0U : 1U);
    close(nameless);
    begun.reset();
    EXPECT_TRUE(folder.Names().empty());
    Names stay = {".railwright-1-1.tmp",  ".railwright-1-1.tmp.nltrack", ".railwright-1.tmp",
                  ".railwright-12-2.tmp", ".railwright-x-1.tmp",         "a"};
    for (const std::string& name : stay)
        WriteBytes(folder.File(name), Old);
    fs::remove(folder.File(stay[3]));
    fs::create_symlink("a", folder.File(stay[3]));
    WriteBytes(folder.File(".railwright-12-34.tmp"), Old);
    const int living = open(folder.File(stay[0]).c_str(), O_RDONLY);
    ASSERT_EQ(flock(living, LOCK_EX), 0);
    EXPECT_TRUE(WriteWholeFile(folder.Inside("a"), New));
    EXPECT_EQ(folder.Names(), stay);
    close(living);
    EXPECT_TRUE(WriteWholeFile(folder.Inside("a"), New));
    EXPECT_EQ(folder.Names(), Names(stay.begin() + 1, stay.end()));
}

TEST(WholeFile, TwoThatOverwriteInPlaceDoNotMixTheirContents) {
    const TemporaryFolder folder, aside;
    FailingFiles files; // writes short pieces
    files.OpenNewError = std::errc::permission_denied;
    files.Aside = {aside.Inside("")};
    const Bytes contents[] = {Bytes(9000, 'o'), Bytes(11000, 'n')};
    const auto save = [&](int which) { return WriteWholeFile(folder.Inside("a"), contents[which]); };
    for (int round = 0; round < 60; ++round) {
        WriteBytes(folder.File("a"), Old);
        const pid_t other = fork();
        if (other == 0)
            _exit(save(0) ? 0 : 1);
        const pid_t reader = fork();
        while (reader == 0) {
            Bytes read;
            if (!ReadWholeFile(folder.Inside("a"), read) ||
                (read != Old && read != contents[0] && read != contents[1]))
                _exit(1); // mixed content
            if (read != Old)
                _exit(0);
        }
        EXPECT_TRUE(save(1));
        for (const pid_t child : {other, reader}) {
            int status = -1;
            EXPECT_TRUE(waitpid(child, &status, 0) == child && status == 0) << round;
        }
        const Bytes found = ReadBytes(folder.File("a"));
        EXPECT_TRUE(found == contents[0] || found == contents[1]) << round;
    }
    EXPECT_TRUE(aside.Names().empty());
    // While the save waits, another file is renamed to the name. The save overwrites that file.
    int held = open(folder.File("a").c_str(), O_RDONLY);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    WriteBytes(folder.File("b"), Old);
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        fs::rename(folder.File("b"), folder.File("a"));
        close(held);
    });
    EXPECT_TRUE(save(1));
    other.join();
    EXPECT_EQ(ReadBytes(folder.File("a")), contents[1]);
    held = open(folder.File("a").c_str(), O_RDONLY); // never released
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    EXPECT_EQ(save(0).Reason, "is being read or written by another program");
    close(held);
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

TEST(WholeFile, NamesAreTakenJustAsTheyAreWritten) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("Tracks"));
    WriteBytes(folder.File("Tracks/a\\..\\b"), Old);
    WriteBytes(folder.File(".hidden"), Old);
    for (const char* name : {"Tracks/b", "tracks/a\\..\\b", "Tracks/A\\..\\b", ".hidden", "Tracks"})
        EXPECT_FALSE(FileExists(FilePath::FromUser(folder.File(name)))) << name;
    EXPECT_EQ(FileLength(FilePath::FromUser(folder.File("Tracks/a\\..\\b"))), 180);
    EXPECT_TRUE(WriteWholeFile(FilePath::FromUser(folder.File("Tracks/A\\..\\b")), New));
    EXPECT_EQ(ReadBytes(folder.File("Tracks/a\\..\\b")), Old);
    EXPECT_EQ(Files().Status(folder.Inside(std::string(300, 'a'))).What, FileStatus::Kind::Missing);
    Bytes read;
    EXPECT_TRUE(!ReadWholeFile(folder.Inside("none"), read) && read.empty());
    EXPECT_TRUE(CreateFolders(FilePath::FromUser(folder.File("a//b\\c//"))));
    EXPECT_TRUE(fs::is_directory(folder.File("a/b\\c")));
    for (const char* name : {".hidden\\a", ".hidden"}) // .hidden is a file
        EXPECT_FALSE(CreateFolders(folder.Inside(name))) << name;
}

} // namespace railwright::testing
