#include "install/mTool_EnvironmentCleaner.h"
#include "tests/support/TemporaryFolder.h"

#include <cstdlib>

#include <gtest/gtest.h>
#include <unistd.h>

namespace railwright::testing {
namespace {

namespace fs = std::filesystem;

class Unseen final : public OrganizerProgress {
public:
    void Clear() override {}
    void ShowShare(int) override {}
    void ShowDone() override {}
    void RunPendingEvents() override {}
    void Tell(const std::string&) override {}
};

TEST(EnvironmentOrganizerDeathTest, MovesNothingOutOfAFolderThatItCannotRead) {
    const TemporaryFolder simulator;
    const fs::path folder = simulator.Path() / "Environments";
    fs::create_directory(folder);
    WriteBytes(folder / "Sky.bmp", {1});
    WriteBytes(folder / "Dawn.env", {});
    fs::permissions(folder / "Dawn.env", fs::perms::none);
    const auto runAsNobody = [&] {
        if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0)
            std::_Exit(2);
        Unseen progress;
        std::_Exit(OrganizeEnvironments(simulator.Inside(""), progress) ? 0 : 1);
    };
    for (const int mode :
         {0000, 0333, 0555, 0777}) { // closed, not to be listed, not to be written; its .env is closed
        fs::permissions(folder, static_cast<fs::perms>(mode));
        EXPECT_EXIT(runAsNobody(), ::testing::ExitedWithCode(1), "") << mode;
    }
    EXPECT_TRUE(fs::exists(folder / "Sky.bmp"));
}

} // namespace
} // namespace railwright::testing
