#include "platform/UserTextSize.h"

#include <algorithm>

#include <windows.h>

namespace railwright {

double UserTextScale(int width, int height) {
    DWORD percent = 0;
    DWORD size = sizeof percent;
    constexpr auto* key = L"Software\\Microsoft\\Accessibility";
    if (RegGetValueW(HKEY_CURRENT_USER, key, L"TextScaleFactor", RRF_RT_REG_DWORD, nullptr, &percent,
                     &size) != 0)
        return 1;
    constexpr double hundred = 100;
    constexpr double usualResolution = 96;
    constexpr int titleAndMenu = 60;
    RECT room{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
    const double pixel = GetDpiForSystem() / usualResolution;
    const double largest = std::min((room.right - room.left) / (width * pixel),
                                    (room.bottom - room.top) / ((height + titleAndMenu) * pixel));
    return std::clamp(std::min(percent / hundred, largest), 1.0, 2.25);
}

} // namespace railwright
