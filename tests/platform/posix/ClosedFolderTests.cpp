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
    std::string Told;

    void Clear() override {}
    void ShowShare(int) override {}
    void ShowDone() override {}
    void RunPendingEvents() override {}
    void Tell(const std::string& line) override { Told += line + '\n'; }
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
         {0000, 0333, 0555, 0777}) { // no access, no listing, no writing, only its .env is closed
        fs::permissions(folder, static_cast<fs::perms>(mode));
        EXPECT_EXIT(runAsNobody(), ::testing::ExitedWithCode(1), "") << mode;
    }
    EXPECT_TRUE(fs::exists(folder / "Sky.bmp"));
}

TEST(EnvironmentOrganizerPlaces, TakesNoNameForAPathAndTellsEachInOneLine) {
    const TemporaryFolder root;
    const fs::path folder = root.Path() / "a/sim/Environments";
    fs::create_directories(folder);
    const std::string texture = "t.texture.path=Environments\\sky.bmp\r\n";
    const Bytes settings(texture.begin(), texture.end());
    for (const char* name :
         {"a/outside.txt", "a/sim/notes.txt", "a/outside.env", "a/sim/Environments/sky.bmp"})
        WriteBytes(root.Path() / name, settings);
    for (const char* name : {"..\\..\\outside.txt", "..\\notes.txt", "..\\..\\outside.env", "sky.bmp\\x.env",
                             "Dawn.env", "line\nend\x1B.txt"})
        WriteBytes(folder / name, settings);
    Unseen progress;
    EXPECT_EQ(ScanEnvironments(root.Inside("a\\sim")).EnvironmentList.size(), 1U);
    EXPECT_TRUE(OrganizeEnvironments(root.Inside("a\\sim"), progress));
    for (const char* name : {"a/outside.txt", "a/sim/notes.txt", "a/outside.env",
                             "a/sim/Environments/..\\..\\outside.txt", "a/sim/Environments/..\\notes.txt",
                             "a/sim/Environments/..\\..\\outside.env", "a/sim/Environments/sky.bmp\\x.env",
                             "a/sim/Environments/Dawn/sky.bmp", "a/sim/Environments/__Unused Files__/sky.bmp",
                             "a/sim/Environments/__Unused Files__/line\nend\x1B.txt"})
        EXPECT_EQ(ReadBytes(root.Path() / name), settings) << name;
    const std::string backslash = "it has a backslash in its name\n";
    EXPECT_EQ(progress.Told, "..\\..\\outside.env: is skipped, " + backslash +
                                 "sky.bmp\\x.env: is skipped, " + backslash +
                                 "Dawn: Environments\\sky.bmp copied\nDawn: organized\n"
                                 "..\\..\\outside.txt: stays where it is, " +
                                 backslash + "..\\notes.txt: stays where it is, " + backslash +
                                 "line\uFFFDend\uFFFD.txt: moved to __Unused Files__\n"
                                 "sky.bmp: moved to __Unused Files__\n");
}

TEST(EnvironmentOrganizerPlaces, ReadsThroughLinksAndChangesNothingThroughThem) {
    // Names below the simulator's folder that are links to a target outside it.
    for (const std::string linked : {"", "Environments", "Dawn.env", "sky.bmp", "loose.txt", "Dawn", "deep",
                                     "Dawn/deep", "__Unused Files__"}) {
        SCOPED_TRACE(linked);
        const TemporaryFolder root;
        const fs::path simulator = root.Path() / "sim", outside = root.Path() / "outside",
                       folder = simulator / "Environments";
        fs::create_directories(folder / "deep");
        const std::string before =
            "t.texture.path=Environments\\sky.bmp\r\nu.texture.path=Environments\\deep\\mud.bmp\r\n";
        for (const auto& [name, content] : {std::pair("Dawn.env", before),
                                            {"sky.bmp", "sky"},
                                            {"deep/mud.bmp", "mud"},
                                            {"loose.txt", "loose"}})
            WriteBytes(folder / name, {content.begin(), content.end()});
        fs::permissions(folder / "deep/mud.bmp", fs::perms::owner_read | fs::perms::owner_write);
        const bool isBegun = linked == "Dawn/deep"; // by an interrupted run
        if (isBegun) {
            const std::string list = "Railwright has not finished organizing these environments:/Dawn.env/";
            WriteBytes(folder / "~unfinished=", {list.begin(), list.end()});
            fs::create_directory(folder / "Dawn");
        }
        const fs::path place = linked == "Environments" ? folder : folder / linked;
        if (!linked.empty()) {
            fs::exists(place) ? fs::rename(place, outside) : void(fs::create_directory(outside));
            fs::create_symlink(linked == "Environments" ? "../outside" : "../../outside", place);
        }
        const auto found = [&] {
            std::string names = fs::is_directory(outside) ? "" : "one file";
            if (names.empty())
                for (const auto& entry : fs::recursive_directory_iterator(outside))
                    names += entry.path().filename().string() + ' ';
            return names;
        };
        const std::string was = linked.empty() ? "" : found();
        Unseen progress;
        // Nothing is moved if an environment is skipped, or if a write would go through a link.
        const bool passes = linked == "Dawn.env" || isBegun || linked == "__Unused Files__";
        EXPECT_EQ(OrganizeEnvironments(root.Inside("sim"), progress), !passes) << progress.Told;
        if (!linked.empty()) {
            EXPECT_TRUE(fs::is_symlink(place));
            EXPECT_TRUE(linked == "Environments" || found() == was);
        }
        const bool isNew = linked != "Dawn.env" && linked != "Dawn" && !isBegun;
        const Bytes settings = ReadBytes(folder / "Dawn.env");
        EXPECT_EQ(std::string(settings.begin(), settings.end()) != before, isNew);
        EXPECT_EQ(fs::exists(folder / "Dawn/sky.bmp"), isNew || isBegun);
        EXPECT_EQ(fs::exists(folder / "Dawn/deep/mud.bmp"), isNew);
        if (isNew) { // a copy keeps the permissions of its source
            EXPECT_EQ(fs::status(folder / "Dawn/deep/mud.bmp").permissions(),
                      fs::perms::owner_read | fs::perms::owner_write);
        }
        for (const std::string loose : {"sky.bmp", "loose.txt"})
            EXPECT_EQ(fs::exists(folder / loose), passes || loose == linked) << loose;
        EXPECT_EQ(progress.Told.find("is a link") != std::string::npos || isBegun,
                  passes || linked == "sky.bmp" || linked == "loose.txt")
            << progress.Told;
    }
}

} // namespace
} // namespace railwright::testing
