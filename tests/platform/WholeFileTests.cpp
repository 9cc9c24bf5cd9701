#include "platform/WholeFile.h"

#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace railwright::testing {

using Names = std::vector<std::string>;
const Bytes Old(180, 'o');
const Bytes New(250, 'n');

TEST(WholeFile, SaveThatFailsLeavesWhatWasThere) {
    // Open, three writes of 100, 100 and 50 bytes, cut off, flush, close, rename. In place without the
    // rename, but the old content is read first, which is an open and one read.
    for (const auto& [calls, old, inPlace] : {std::tuple(8, true, false), {8, false, false}, {9, true, true}})
        for (int i = 2; i < 2 * calls + 4; ++i) {
            SCOPED_TRACE(i);
            const TemporaryFolder folder;
            if (old)
                WriteBytes(folder.File("a"), Old);
            FailingFiles files;
            files.FailAt = i / 2;
            files.WritesNothing = i % 2 == 1;
            files.OpenNewError = inPlace ? std::errc::permission_denied : std::errc{};
            const FileResult saved = WriteWholeFile(folder.Inside("a"), New);
            EXPECT_EQ(saved.Done, files.FailAt > calls);
            EXPECT_EQ(saved.Reason.empty(), saved.Done);
            EXPECT_EQ(ReadBytes(folder.File("a")), saved ? New : old ? Old : Bytes{});
            EXPECT_EQ(folder.Names(), saved || old ? Names{"a"} : Names{});
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
        EXPECT_EQ(ReadBytes(folder.File("a")), closed ? Old : New); // the shorter over the longer
        EXPECT_FALSE(WriteWholeFile(folder.Inside("other"), Old));
    }
    EXPECT_EQ(folder.Names(), Names{"a"});
}

} // namespace railwright::testing
