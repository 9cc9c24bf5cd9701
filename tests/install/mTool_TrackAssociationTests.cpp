#include "install/mTool_TrackAssociation.h"

#include "base/Text.h"
#include "install/mWinRegistry.h"
#include "tests/support/TestRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace railwright::testing {

using Entries = std::map<std::string, std::string>;
const std::string Class = "NoLimits.Trackfile";
const std::string Folder = "D:\\Spa\xDF\\NoLimits\\"; // in the code page
const std::string RideIcon = Folder + "NoLimitsSimulator.exe,0";

class TrackAssociation : public ::testing::Test {
protected:
    TestRegistry own;

    TrackAssociation() { PrepareFileAssociation("D:\\Spa\u00DF\\NoLimits"); }
    ~TrackAssociation() override { PrepareFileAssociation(""); }

    /// The entries for a default verb and icon, without some of the verbs. The defaults are the initial
    /// choices of the panel.
    static Entries With(const char* verb = "Ride", const std::string& icon = RideIcon,
                        const std::vector<std::string>& without = {}) {
        const std::string shell = Class + "\\Shell", file = " \"%1\"";
        Entries entries = {{".nltrack", Class}, {Class + "\\DefaultIcon", icon}, {shell, verb}};
        const std::tuple<std::string, const char*, std::string> verbs[] = {
            {"\\Edit", "Edit", "NoLimitsEditor.exe" + file},
            {"\\Ride", "Ride!", "NoLimitsSimulator.exe -s" + file},
            {"\\Tera", "Terraform", "NoLimitsTerraformer.exe" + file},
            {"\\Tool", "Railwright", "Railwright.exe" + file}};
        for (const auto& [name, caption, command] : verbs)
            if (std::ranges::count(without, name) == 0)
                entries.insert({{shell + name, caption}, {shell + name + "\\Command", Folder + command}});
        return entries;
    }
    /// Those of these entries that are in the registry.
    static Entries Registered() {
        Entries found;
        for (const auto& [key, value] : With())
            if (text read; ReadRegistryValue(HKEY_CLASSES_ROOT, key, "", read))
                found[key] = BytesOf(read);
        return found;
    }
    static void SetAll(std::int16_t doubleClick = 0, std::int16_t icon = 0, const char* iconFile = "") {
        SetTrackAssociation({.iDoubleClick = doubleClick, .iIcon = icon, .sIconFile = iconFile});
    }
};

TEST_F(TrackAssociation, SetsEveryEntryOnceAndAgainInAFolderWithOrWithoutItsBackslash) {
    const char* const plain = "D:\\Spa\u00DF\\NoLimits";
    for (const char* folder : {"", "D:\\Spa\u00DF\\NoLimits\\", plain, plain}) {
        PrepareFileAssociation(folder);
        SetAll();
        EXPECT_EQ(Registered(), *folder == 0 ? Entries{} : With());
    }
}

TEST_F(TrackAssociation, FollowsEachOption) {
    const std::string icons = Folder + "RailwrightIcons.dll,";
    const std::tuple<std::int16_t, std::int16_t, const char*, const char*, std::string> cases[] = {
        {1, 1, "", "Edit", Folder + "NoLimitsEditor.exe,0"},
        {2, 2, "", "Tera", icons + '0'},
        {0, 3, "", "Ride", icons + '1'},
        {0, 4, "", "Ride", icons + '2'},
        {0, 5, "", "Ride", icons + '3'},
        {0, 6, "E:\\a.ico", "Ride", icons + '4'},
        {0, 7, "E:\\caf\u00E9\\\u4E00.ico", "Ride", "E:\\caf\xE9\\?.ico,0"},
        {0, 7, "", "Ride", ",0"},
        {0, 0, "E:\\a.ico", "Ride", RideIcon},
        {3, 8, "E:\\a.ico", "Ride", RideIcon}, // not available in the panel: no change
        {-1, -1, "E:\\a.ico", "Ride", RideIcon}};
    for (const auto& [doubleClick, icon, iconFile, verb, expected] : cases) {
        SetAll(doubleClick, icon, iconFile);
        EXPECT_EQ(Registered(), With(verb, expected));
    }
}

TEST_F(TrackAssociation, RemovesTheVerbsThatAreCleared) {
    SetAll();
    for (int press = 0; press < 2; ++press) { // the second time the verbs are already gone
        SetTrackAssociation({.iDoubleClick = 1, .bRide = false, .bTerraform = false});
        EXPECT_EQ(Registered(), With("Edit", RideIcon, {"\\Ride", "\\Tera"}));
    }
    SetTrackAssociation({.iDoubleClick = 2, .bEdit = false, .bTool = false});
    EXPECT_EQ(Registered(), With("Tera", RideIcon, {"\\Edit", "\\Tool"}));

    // A verb that was set by hand: another caption, and no command.
    RegistryInput byHand = "Look inside";
    WriteRegistryValue(HKEY_CLASSES_ROOT, Class + "\\SHELL\\edit", REG_SZ, "", byHand);
    SetTrackAssociation({.iDoubleClick = 2, .bEdit = false});
    EXPECT_EQ(Registered(), With("Tera", RideIcon, {"\\Edit"}));
    WriteRegistryValue(HKEY_CLASSES_ROOT, Class + "\\Shell\\Edit", REG_SZ, "", byHand);
    SetAll();
    EXPECT_EQ(Registered(), With());
}

} // namespace railwright::testing
