#include "install/mTool_TrackAssociation.h"

#include "install/mWinRegistry.h"
#include "tests/support/TestRegistry.h"

#include <gtest/gtest.h>

#include <map>

namespace railwright {
namespace {

using Entries = std::map<std::string, std::string>;

class TrackAssociation : public ::testing::Test {
protected:
    testing::TestRegistry own;

    TrackAssociation() { PrepareFileAssociation("D:\\Spa\u00DF\\NoLimits"); }
    ~TrackAssociation() override { PrepareFileAssociation(""); }

    /// What the design-time choices of the panel set; the folder is in the code page.
    const Entries all = {
        {".nltrack", "NoLimits.Trackfile"},
        {"NoLimits.Trackfile\\DefaultIcon", "D:\\Spa\xDF\\NoLimits\\NoLimitsSimulator.exe,0"},
        {"NoLimits.Trackfile\\Shell", "Ride"},
        {"NoLimits.Trackfile\\Shell\\Edit", "Edit"},
        {"NoLimits.Trackfile\\Shell\\Edit\\Command", "D:\\Spa\xDF\\NoLimits\\NoLimitsEditor.exe \"%1\""},
        {"NoLimits.Trackfile\\Shell\\Ride", "Ride!"},
        {"NoLimits.Trackfile\\Shell\\Ride\\Command",
         "D:\\Spa\xDF\\NoLimits\\NoLimitsSimulator.exe -s \"%1\""},
        {"NoLimits.Trackfile\\Shell\\Tera", "Terraform"},
        {"NoLimits.Trackfile\\Shell\\Tera\\Command", "D:\\Spa\xDF\\NoLimits\\NoLimitsTerraformer.exe \"%1\""},
        {"NoLimits.Trackfile\\Shell\\Tool", "Railwright"},
        {"NoLimits.Trackfile\\Shell\\Tool\\Command", "D:\\Spa\xDF\\NoLimits\\Railwright.exe \"%1\""}};

    /// @return those of the entries that are in the registry.
    Entries Registered() const {
        Entries found;
        for (const auto& [key, value] : all)
            if (std::string read; ReadRegistryValue(HKEY_CLASSES_ROOT, key, "", read))
                found[key] = read;
        return found;
    }

    /// `all` with another default verb and icon and without some verbs.
    Entries With(const char* verb, const std::string& icon,
                 const std::vector<std::string>& without = {}) const {
        Entries entries = all;
        entries["NoLimits.Trackfile\\Shell"] = verb;
        entries["NoLimits.Trackfile\\DefaultIcon"] = icon;
        for (const std::string& name : without) {
            entries.erase("NoLimits.Trackfile\\Shell\\" + name);
            entries.erase("NoLimits.Trackfile\\Shell\\" + name + "\\Command");
        }
        return entries;
    }
};

const std::string Folder = "D:\\Spa\xDF\\NoLimits\\";
const std::string RideIcon = Folder + "NoLimitsSimulator.exe,0";

TEST_F(TrackAssociation, SetsEveryEntryOnceAndAgain) {
    for (int press = 0; press < 2; ++press) {
        SetTrackAssociation(0, true, true, true, true, 0, "");
        EXPECT_EQ(Registered(), all);
    }
}

TEST_F(TrackAssociation, FollowsEachOption) {
    struct Case {
        std::int16_t DoubleClick;
        std::int16_t Icon;
        const char* IconFile;
        const char* Verb;
        std::string Expected;
    };
    const Case cases[] = {{1, 1, "", "Edit", Folder + "NoLimitsEditor.exe,0"},
                          {2, 2, "", "Tera", Folder + "RailwrightIcons.dll,0"},
                          {0, 3, "", "Ride", Folder + "RailwrightIcons.dll,1"},
                          {0, 4, "", "Ride", Folder + "RailwrightIcons.dll,2"},
                          {0, 5, "", "Ride", Folder + "RailwrightIcons.dll,3"},
                          {0, 6, "E:\\a.ico", "Ride", Folder + "RailwrightIcons.dll,4"},
                          {0, 7, "E:\\caf\u00E9\\\u4E00.ico", "Ride", "E:\\caf\xE9\\?.ico,0"},
                          {0, 7, "", "Ride", ",0"},
                          {0, 0, "E:\\a.ico", "Ride", RideIcon}};
    for (const auto& [doubleClick, icon, iconFile, verb, expected] : cases) {
        SetTrackAssociation(doubleClick, true, true, true, true, icon, iconFile);
        EXPECT_EQ(Registered(), With(verb, expected));
    }
}

TEST_F(TrackAssociation, RemovesTheVerbsThatAreCleared) {
    SetTrackAssociation(0, true, true, true, true, 0, "");
    for (int press = 0; press < 2; ++press) { // the second time there is nothing to remove
        SetTrackAssociation(1, false, true, false, true, 0, "");
        EXPECT_EQ(Registered(), With("Edit", RideIcon, {"Ride", "Tera"}));
    }
    SetTrackAssociation(2, true, false, true, false, 0, "");
    EXPECT_EQ(Registered(), With("Tera", RideIcon, {"Edit", "Tool"}));

    // One that was set by hand, with another caption and only half of it.
    RegistryInput byHand = "Look inside";
    WriteRegistryValue(HKEY_CLASSES_ROOT, "NoLimits.Trackfile\\SHELL\\edit", REG_SZ, "", byHand);
    SetTrackAssociation(2, true, false, true, true, 0, "");
    EXPECT_EQ(Registered(), With("Tera", RideIcon, {"Edit"}));
    WriteRegistryValue(HKEY_CLASSES_ROOT, "NoLimits.Trackfile\\Shell\\Edit", REG_SZ, "", byHand);
    SetTrackAssociation(0, true, true, true, true, 0, "");
    EXPECT_EQ(Registered(), all);
}

TEST_F(TrackAssociation, TakesTheFolderWithOrWithoutItsBackslashAndNeedsOne) {
    PrepareFileAssociation("");
    SetTrackAssociation(0, true, true, true, true, 0, "");
    EXPECT_EQ(Registered(), Entries{});
    PrepareFileAssociation("D:\\Spa\u00DF\\NoLimits\\");
    SetTrackAssociation(0, true, true, true, true, 0, "");
    EXPECT_EQ(Registered(), all);
}

} // namespace
} // namespace railwright
