#include "platform/UserTextSize.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace railwright::testing {

TEST(UserTextSize, IsTheUsersAsFarAsTheWindowFitsTheScreen) {
    const auto* const key = L"Software\\Microsoft\\Accessibility";
    const auto* const name = L"TextScaleFactor";
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key, name);
    EXPECT_EQ(UserTextScale(1, 1), 1);
    const auto scale = [&](DWORD percent, int width, int height) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key, name, REG_DWORD, &percent, sizeof percent), 0);
        return UserTextScale(width, height);
    };
    EXPECT_EQ(scale(175, 100, 100), 1.75);
    EXPECT_EQ(scale(1000, 100, 100), 2.25);
    EXPECT_EQ(scale(50, 100, 100), 1);
    const int screen = GetSystemMetrics(SM_CXSCREEN);
    EXPECT_NEAR(scale(200, screen * 2 / 3, 1), 1.5, 0.01) << screen;
    EXPECT_EQ(scale(200, screen * 2, 1), 1);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key, name);
}

} // namespace railwright::testing
