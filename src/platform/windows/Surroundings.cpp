#include "platform/CodePage.h"
#include "platform/CommandLine.h"
#include "platform/List.h"
#include "platform/Paths.h"
#include "platform/UserLocale.h"
#include "platform/windows/Wide.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace railwright {
namespace {

/// The system's own code page, or Windows-1252 where that takes more than one byte for some character or two
/// of its bytes mean the same.
CodePage MakeSystemCodePage() {
    CPINFO info{};
    if (GetCPInfo(CP_ACP, &info) == FALSE || info.MaxCharSize != 1)
        return Windows1252();
    CodePage page{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        char character = static_cast<char>(byte);
        wchar_t wide = 0;
        if (MultiByteToWideChar(CP_ACP, 0, &character, 1, &wide, 1) != 1)
            return Windows1252();
        page.Unicode[byte] = static_cast<char32_t>(wide);
        CharLowerBuffA(&character, 1);
        page.Lower[byte] = static_cast<unsigned char>(character);
    }
    auto sorted = page.Unicode;
    std::sort(sorted.begin(), sorted.end());
    const bool distinct = std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
    return distinct ? page : Windows1252();
}

std::string Setting(LCTYPE which) {
    std::array<wchar_t, 16> value{};
    const int length =
        GetLocaleInfoW(LOCALE_USER_DEFAULT, which, value.data(), static_cast<int>(value.size()));
    return length > 0 ? FromWide({value.data(), static_cast<std::size_t>(length - 1)}) : "";
}

} // namespace

const CodePage& SystemCodePage() {
    static const CodePage page = MakeSystemCodePage();
    return page;
}

NumberSeparators UserNumberSeparators() {
    const NumberSeparators user = {Setting(LOCALE_STHOUSAND), Setting(LOCALE_SDECIMAL)};
    return user.Decimal.empty() ? NumberSeparators{} : user;
}

std::string PathFromOutside(std::string_view path) {
    std::string inside(path);
    std::replace(inside.begin(), inside.end(), '/', '\\');
    return inside;
}

std::string PathForOutside(std::string_view path) {
    return std::string(path);
}

// Large pages take a right here that users do not have.
void* AllocateForList(std::size_t size) {
    return ::operator new(size);
}

void FreeFromList(void* memory, std::size_t) noexcept {
    ::operator delete(memory);
}

std::vector<std::string> StartCommandLine(int, char**) {
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    int count = 0;
    std::vector<std::string> arguments;
    if (wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count); wide != nullptr) {
        for (int i = 1; i < count; ++i)
            arguments.push_back(FromWide(wide[i]));
        LocalFree(wide);
    }
    return arguments;
}

} // namespace railwright
