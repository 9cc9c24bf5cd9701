#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace railwright::testing {

/// Number of saves that a process has begun and ended, in shared memory.
struct Progress {
    std::atomic<int> Begun, Ended;
};

TEST(SuddenEnd, LeavesTheOldOrTheNewTrackWholeWheneverItComes) {
    const TemporaryFolder folder, aside;
    FailingFiles files; // writes short pieces
    files.Aside = {aside.Inside("")};
    ClearTrackDocument();
    const auto save = [&](int number) { // alternates between two contents of different length and letters
        Track.TrackInfo.AuthorComments.assign(number % 2 == 0 ? 60'000 : 40'000, "eo"[number % 2]);
        return SaveTrackFile(folder.Inside("a.nltrack")).Done;
    };
    Bytes contents[2];
    const auto start = std::chrono::steady_clock::now();
    for (int number = 0; number < 20; ++number) {
        ASSERT_TRUE(save(number));
        contents[number % 2] = ReadBytes(folder.File("a.nltrack"));
    }
    const std::chrono::duration<double> one = (std::chrono::steady_clock::now() - start) / 20;
    ASSERT_TRUE(contents[0].size() == 60'665 && contents[1].size() == 40'665);
    auto* const saves = static_cast<Progress*>(
        mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

    constexpr int kills = 200;
    int inTheMiddle = 0, status = 0;
    std::mt19937 random(1);
    // On a busy machine many kills hit between two saves. Then the test kills more often.
    for (int kill = 0; (kill < kills || (inTheMiddle < kills / 8 && kill < 20 * kills)) && !HasFailure();
         ++kill) {
        // Every other process cannot create a new file, and overwrites the old one.
        files.OpenNewError = kill % 2 == 0 ? std::errc{} : std::errc::permission_denied;
        saves->Begun = saves->Ended = 0;
        const pid_t child = fork();
        while (child == 0)
            saves->Ended += save(++saves->Begun) ? 1 : kills;
        while (saves->Begun == 0)
            std::this_thread::yield();
        std::this_thread::sleep_for(one * std::uniform_real_distribution(0.0, 3.0)(random));
        ASSERT_TRUE(::kill(child, SIGKILL) == 0 && waitpid(child, &status, 0) == child);
        EXPECT_TRUE(WIFSIGNALED(status) && saves->Ended <= saves->Begun) << "a save has failed";
        inTheMiddle += saves->Ended < saves->Begun ? 1 : 0;
        const auto isWhole = [&](const Bytes& found) {
            return found == contents[saves->Begun % 2] || found == contents[saves->Ended % 2];
        };
        const Names copies = aside.Names();
        EXPECT_TRUE(isWhole(ReadBytes(folder.File("a.nltrack"))) ||
                    (copies.size() == 1 && isWhole(ReadBytes(aside.File(copies[0])))))
            << kill;
        for (const std::string& copy : copies)
            std::filesystem::remove(aside.File(copy));
        // No file is left, even after a kill between the temporary name and the final one.
        EXPECT_TRUE(save(0) && ReadBytes(folder.File("a.nltrack")) == contents[0]);
        EXPECT_TRUE(aside.Names().empty() && folder.Names() == Names{"a.nltrack"});
    }
    EXPECT_GE(inTheMiddle, kills / 8);
}

} // namespace railwright::testing
