#include "install/mWinRegistry.h"

#include "base/Text.h"
#include "tests/support/TestRegistry.h"

#include <gtest/gtest.h>

#include <vector>

namespace railwright::testing {

/// Tests the registry file, or on Windows the real registry.
class WinRegistry : public ::testing::Test {
protected:
    static constexpr const char* Key = "Software\\NoLimits Coasters";
    TestRegistry own;

    /// @return a text that was "before", after reading. "failed, " precedes it if there was no value.
    static std::string Read(const std::string& name, const std::string& key = Key) {
        text result = "before";
        const bool found = ReadRegistryValue(HKEY_CURRENT_USER, key, name, result);
        return (found ? "" : "failed, ") + BytesOf(result);
    }

    static bool Write(std::uint32_t type, const std::string& name, RegistryInput value) {
        return WriteRegistryValue(HKEY_CURRENT_USER, Key, type, name, value);
    }
};

TEST_F(WinRegistry, ReadsWhatTheRegistryHolds) {
    const std::string text1023(1023, 'a');
    const std::tuple<std::uint32_t, std::string, std::string> cases[] = {
        {REG_SZ, std::string("C:\\NoLimits\0", 12), "C:\\NoLimits"},
        {REG_SZ, "no NUL at its end", "no NUL at its end"},
        {REG_SZ, "two at its end" + std::string(2, 0), "two at its end" + std::string(1, 0)},
        {REG_SZ, "", ""},
        {REG_SZ, "Spa\xDF \x80", "Spa\xDF \x80"},
        {REG_SZ, "a\r\nb \"c\"", "a\r\nb \"c\""},
        {REG_SZ, text1023 + '\0', text1023},
        {REG_SZ, text1023 + 'b', "failed, before"}, // one byte too long with its NUL
        {REG_BINARY, std::string(1024, 'b'), "before"},
        {REG_BINARY, std::string(1025, 'b'), "failed, before"},
        {REG_DWORD, std::string("\x1E\x0A\x00\x90", 4), "&hbefore90000A1E"},
        {11, "12345678", "before"},
    };
    for (const char* name : {"", "InstPath", "a \"quoted\\name"})
        for (const auto& [type, stored, expected] : cases) {
            ASSERT_TRUE(registry::Write(HKEY_CURRENT_USER, Key, name, {type, stored}));
            EXPECT_EQ(Read(name), expected) << type << ' ' << stored.size();
        }
    EXPECT_EQ(Read("INSTPATH", "software\\NOLIMITS coasters"), "before") << "in any case of letters";
    EXPECT_EQ(Read("Other"), "failed, before");
    EXPECT_EQ(Read("", "Software\\NoLimits"), "failed, before");
}

TEST_F(WinRegistry, WritesEachTypeAndMakesTheKey) {
    EXPECT_EQ(Read("t"), "failed, before");
    EXPECT_TRUE(Write(REG_SZ, "t", "C:\\x"));
    EXPECT_TRUE(Write(REG_SZ, "from number", -7));
    EXPECT_TRUE(Write(REG_DWORD, "d", 258));
    EXPECT_TRUE(Write(REG_DWORD, "from text", "-2"));
    EXPECT_TRUE(Write(REG_BINARY, "b", "abc"));
    EXPECT_TRUE(Write(11, "none", "abc")) << "stores nothing";
    const std::pair<const char*, const char*> expected[] = {
        {"t", "C:\\x"},          {"from number", "-7"},
        {"d", "&hbefore000102"}, {"from text", "&hbeforeFFFFFFFE"},
        {"b", "before"},         {"none", "failed, before"}};
    for (const auto& [name, read] : expected)
        EXPECT_EQ(Read(name), read) << name;

    // A text is stored with a NUL, bytes are stored unchanged.
    for (const auto& [name, size] : {std::pair("t", 5U), std::pair("b", 3U), std::pair("d", 4U)})
        EXPECT_EQ(registry::Read(HKEY_CURRENT_USER, Key, name).value().Data.size(), size) << name;

    RegistryInput noNumber = "12 m";
    EXPECT_FALSE(WriteRegistryValue(HKEY_CURRENT_USER, Key, REG_DWORD, "d", noNumber));
    EXPECT_EQ(noNumber, RegistryInput(""));
    EXPECT_EQ(Read("d"), "&hbefore000102");
    RegistryInput lost = 3;
    EXPECT_FALSE(WriteRegistryValue(12345, Key, REG_SZ, "", lost)) << "no such root";
    EXPECT_EQ(lost, RegistryInput(""));
}

TEST_F(WinRegistry, DeletesOnlyKeysWithoutSubkeys) {
    EXPECT_FALSE(DeleteRegistryKey(HKEY_CURRENT_USER, Key));
    EXPECT_TRUE(Write(REG_SZ, "", "x"));
    EXPECT_FALSE(DeleteRegistryKey(HKEY_CURRENT_USER, "Software")) << "has a subkey";
    EXPECT_FALSE(DeleteRegistryKey(HKEY_CURRENT_USER, "Software\\NoLimits"));
    EXPECT_EQ(Read(""), "x");
    EXPECT_TRUE(DeleteRegistryKey(HKEY_CURRENT_USER, "SOFTWARE\\nolimits coasters"));
    EXPECT_EQ(Read(""), "failed, before");
    EXPECT_TRUE(DeleteRegistryKey(HKEY_CURRENT_USER, "Software"));
    EXPECT_FALSE(DeleteRegistryKey(HKEY_CURRENT_USER, "Software"));
}

} // namespace railwright::testing
