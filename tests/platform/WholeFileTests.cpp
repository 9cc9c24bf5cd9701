#include "platform/WholeFile.h"

#include "platform/InPlace.h"

#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace railwright::testing {

/// State before a save, and the number of calls that it makes.
struct Situation {
    bool HasOld;
    bool IsInPlace; // no new file can be created in the folder
    int Calls;
};
/// Error of the call that fails.
struct Fault {
    std::errc Cause;
    bool WritesNothing = false;
};

static void ExpectNothingLost(const Situation& now, int failAt, bool stays, const Fault& fault) {
    const TemporaryFolder folder, aside;
    if (now.HasOld)
        WriteBytes(folder.File("a"), Old);
    FailingFiles files;
    files.FailAt = failAt;
    files.Stays = stays; // so the overwritten content cannot be restored
    files.Cause = fault.Cause;
    files.WritesNothing = fault.WritesNothing;
    files.OpenNewError = now.IsInPlace ? std::errc::permission_denied : std::errc{};
    files.Aside = {aside.Inside(""), aside.Inside("")};
    const FileResult saved = WriteWholeFile(folder.Inside("a"), New);
    // If the folder allows no new file, the save overwrites the old one. If one folder allows no copy, the
    // save uses the other.
    const bool notPermitted = fault.Cause == std::errc::operation_not_permitted;
    const bool takesNoNew =
        now.HasOld && ((failAt == 3 && (notPermitted || fault.Cause == std::errc::permission_denied)) ||
                       (failAt == 9 && notPermitted)); // a file that cannot be replaced
    const bool takesNoCopy = failAt >= 4 && failAt <= 13;
    const bool answered = !stays && (now.IsInPlace ? takesNoCopy : takesNoNew);
    EXPECT_EQ(saved.Done, failAt > now.Calls || answered);
    EXPECT_EQ(saved.Reason.empty(), saved.Done);
    const bool lost = !saved.OldKeptIn.IsEmpty();
    EXPECT_EQ(lost, now.IsInPlace && stays && failAt > 13 && !saved);
    EXPECT_EQ(lost, saved.Reason.find("cannot be put back; it is in") != std::string::npos);
    const Bytes before = now.HasOld ? Old : Bytes{};
    EXPECT_EQ(ReadBytes(lost ? saved.OldKeptIn.Native() : folder.File("a")), saved ? New : before);
    EXPECT_EQ(folder.Names().size(), saved || now.HasOld ? 1U : 0U);
    EXPECT_TRUE(stays || failAt == 20 || aside.Names().empty());
    const bool replaced = saved && !now.IsInPlace && !answered; // so the folder is flushed
    EXPECT_TRUE(!replaced || files.Log == (Names{"exchange", folder.Inside("a").Folder().Native()}));
    EXPECT_TRUE(!now.IsInPlace || !saved || files.Log == Names{files.Aside[0].Native()}); // the copy's folder
}

TEST(WholeFile, SaveThatFailsLeavesWhatWasThere) {
    // Calls: check, follow links, open, three writes of 100, 100 and 50 bytes, truncate, flush, exchange. A
    // save in place opens differently, searches both folders for copies, and copies the old content: open,
    // rewind, read, two writes, read, truncate, flush. It also rewinds the file before the writes.
    const Situation situations[] = {{.HasOld = true, .IsInPlace = false, .Calls = 9},
                                    {.HasOld = false, .IsInPlace = false, .Calls = 9},
                                    {.HasOld = true, .IsInPlace = true, .Calls = 19}};
    const Fault faults[] = {{std::errc::no_space_on_device},
                            {std::errc::io_error},
                            {std::errc::permission_denied},
                            {std::errc::operation_not_permitted},
                            {.Cause = std::errc::no_space_on_device, .WritesNothing = true}};
    for (const Situation& situation : situations)
        for (int failAt = 1; failAt <= situation.Calls + 1; ++failAt)
            for (const bool stays : {false, true})
                for (const Fault& fault : faults) {
                    SCOPED_TRACE(std::to_string(situation.Calls) + " calls, " + std::to_string(failAt) +
                                 " fails, fault " + std::to_string(&fault - faults));
                    ExpectNothingLost(situation, failAt, stays, fault);
                }
}

TEST(WholeFile, OnlyAClosedFolderIsAnsweredByWritingInPlace) {
    const TemporaryFolder folder;
    FailingFiles files;
    for (const auto error : {std::errc::permission_denied, std::errc::operation_not_permitted,
                             std::errc::read_only_file_system, std::errc::no_space_on_device}) {
        WriteBytes(folder.File("a"), New);
        files.OpenNewError = error;
        const bool closed = error != std::errc::no_space_on_device;
        EXPECT_EQ(WriteWholeFile(folder.Inside("a"), Old).Done, closed);
        EXPECT_EQ(ReadBytes(folder.File("a")), closed ? Old : New); // shorter content replaces longer content
        EXPECT_FALSE(WriteWholeFile(folder.Inside("other"), Old));
    }
    EXPECT_EQ(folder.Names(), Names{"a"});
}

TEST(WholeFile, NamesTheCopyOfAnInterruptedSaveAndReportsAFolderThatCannotBeFlushed) {
    const TemporaryFolder folder, aside;
    // The second is that of another file, whose name ends in the same way.
    for (const char* name : {"railwright-copy-3-a", "railwright-copy-1-b-a", "railwright-copy-1-b"})
        WriteBytes(aside.File(name), Old);
    WriteBytes(folder.File("a"), Old);
    FailingFiles files;
    files.Aside = {aside.Inside("")};
    EXPECT_EQ(LeftCopies(),
              (std::vector{aside.Inside("railwright-copy-1-b"), aside.Inside("railwright-copy-1-b-a"),
                           aside.Inside("railwright-copy-3-a")}));
    std::error_code error; // an open copy is in use
    const auto open = files.OpenCopy(aside.Inside("railwright-copy-2-b"), error);
    EXPECT_EQ(LeftCopies(FileName("b")), std::vector{aside.Inside("railwright-copy-1-b")});
    files.OpenNewError = std::errc::permission_denied;
    FileResult saved = WriteWholeFile(folder.Inside("a"), New);
    EXPECT_TRUE(saved);
    EXPECT_EQ(saved.OldKeptIn, aside.Inside("railwright-copy-3-a"));
    EXPECT_EQ(aside.Names().size(), 4U);

    files.OpenNewError = {};
    files.FlushFolderError = std::errc::io_error;
    saved = WriteWholeFile(folder.Inside("a"), Old);
    EXPECT_FALSE(saved);
    EXPECT_EQ(ReadBytes(folder.File("a")), Old);
}

TEST(WholeFile, KeepsTheNewContentIfTheOldFileIsLost) {
    // Windows returns error 1177 and similar ones if an exchange stops after it removed the old file and
    // before it renamed the new one.
    for (const bool flushed : {true, false}) {
        const TemporaryFolder folder;
        WriteBytes(folder.File("a"), Old);
        if (flushed)
            WriteBytes(folder.File("kept-1-a"), Old); // left by an earlier save
        FailingFiles files;
        files.LosesTheOldFile = true;
        files.FailAt = flushed ? 0 : 8; // unflushed content is not kept
        const FileResult saved = WriteWholeFile(folder.Inside("a"), New);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.KeptIn.IsEmpty(), !flushed);
        if (!flushed) {
            EXPECT_EQ(folder.Names(), Names{"a"});
            continue;
        }
        EXPECT_NE(saved.Reason.find(saved.KeptIn.Native()), std::string::npos);
        EXPECT_EQ(folder.Names(), (Names{"kept-1-a", "kept-2-a"}));
        EXPECT_EQ(ReadBytes(saved.KeptIn.Native()), New);
    }
}

TEST(WholeFile, AFolderThatAnotherProcessMakesMeanwhileIsWelcome) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.File("made"));
    WriteBytes(folder.File("file"), Old);
    for (const auto& [name, isWelcome] : {std::pair("made", true), {"file", false}}) {
        FailingFiles files;
        files.FailAt = 1; // the first check does not find it
        EXPECT_EQ(CreateFolders(folder.Inside(name)).Done, isWelcome);
    }
}

} // namespace railwright::testing
