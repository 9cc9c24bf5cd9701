#include "install/mTool_TrackAssociation.h"
#include "tests/support/TestRegistry.h"

#include <gtest/gtest.h>

#include <array>

#include <windows.h>

#include <sddl.h>

namespace railwright::testing {

/// Sets the access rights of a machine key.
static void Protect(const std::string& key, const char* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    HKEY opened = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA(rights, 1, &descriptor, nullptr));
    ASSERT_EQ(RegOpenKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, WRITE_DAC, &opened), 0) << key;
    EXPECT_EQ(RegSetKeySecurity(opened, DACL_SECURITY_INFORMATION, descriptor), 0) << key;
    RegCloseKey(opened);
    LocalFree(descriptor);
}

static std::string Read(HKEY root, const std::string& key) {
    std::array<char, 260> value{};
    DWORD size = value.size();
    return RegGetValueA(root, key.c_str(), "", RRF_RT_REG_SZ, nullptr, value.data(), &size) == 0
               ? value.data()
               : "none";
}

TEST(Registry, GivesAnOrdinaryUserAnAssociationOfTheirOwn) {
    const TestRegistry own;
    const std::string shell = "NoLimits.Trackfile\\Shell", command = shell + "\\Edit\\Command";
    const auto set = [](const char* folder, std::int16_t doubleClick) {
        PrepareFileAssociation(folder);
        SetTrackAssociation({.iDoubleClick = doubleClick});
        PrepareFileAssociation("");
    };
    set("C:\\Everybody", 0);
    for (const std::string& key : {shell, command})
        Protect(key, "D:P(A;;KR;;;WD)");
    set("C:\\Mine", 1);
    for (const std::string& key : {shell, command})
        Protect(key, "D:P(A;;KA;;;WD)");
    const std::string mine = "Software\\Classes\\";
    EXPECT_EQ(Read(HKEY_CLASSES_ROOT, shell), "Ride");
    EXPECT_EQ(Read(HKEY_CLASSES_ROOT, command), "C:\\Everybody\\NoLimitsEditor.exe \"%1\"");
    EXPECT_EQ(Read(HKEY_CURRENT_USER, mine + shell), "Edit");
    EXPECT_EQ(Read(HKEY_CURRENT_USER, mine + command), "C:\\Mine\\NoLimitsEditor.exe \"%1\"");
}

} // namespace railwright::testing
