#include "platform/Desktop.h"

#include "platform/windows/Wide.h"

#include <windows.h>

#include <shellapi.h>

namespace railwright {

void OpenWebPage(WindowHandle owner, const std::string& address) {
    ShellExecuteW(reinterpret_cast<HWND>(owner), L"Open", ToWide(address).c_str(), L"", L"", SW_HIDE);
}

} // namespace railwright
