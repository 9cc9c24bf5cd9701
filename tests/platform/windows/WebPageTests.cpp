#include "platform/Desktop.h"
#include "tests/support/TestRegistry.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace railwright::testing {

TEST(WebPage, IsOpenedByTheVerbOpenWithoutAWindow) {
    const TestRegistry own;
    const TemporaryFolder folder;
    const auto set = [](const std::string& key, const std::string& value) {
        EXPECT_EQ(RegSetValueA(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, value.c_str(), 0), 0);
    };
    HKEY scheme = nullptr;
    RegCreateKeyA(HKEY_CLASSES_ROOT, "https", &scheme);
    RegSetValueExA(scheme, "URL Protocol", 0, REG_SZ, nullptr, 0);
    RegCloseKey(scheme);
    for (const std::string verb : {"open", "print"})
        set("https\\shell\\" + verb + "\\command",
            "\"" RAILWRIGHT_NEIGHBOUR "\" record \"" + folder.File(verb) + "\" \"%1\"");
    OpenWebPage(NoWindow, "https://rides.example/vesna/?a=1&b=%20c#d");
    for (int wait = 0; wait < 500 && folder.Names().empty(); ++wait)
        Sleep(20);
    const Bytes record = ReadBytes(folder.File("open"));
    EXPECT_EQ(std::string(record.begin(), record.end()), "0 https://rides.example/vesna/?a=1&b=%20c#d");
    EXPECT_EQ(folder.Names(), Names{"open"});
}

} // namespace railwright::testing
