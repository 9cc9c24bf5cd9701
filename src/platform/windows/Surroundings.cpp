#include "platform/CodePage.h"
#include "platform/CommandLine.h"
#include "platform/FilePath.h"
#include "platform/List.h"
#include "platform/UserLocale.h"
#include "platform/WinePrefix.h"
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

/// Returns the system's code page. Returns Windows-1252 if that uses several bytes for a character, or maps
/// two bytes to the same character.
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

/// Returns the files that match a pattern with "*" or "?", sorted by name.
std::vector<std::string> FilesThatFit(const std::wstring& pattern) {
    std::vector<std::string> files;
    WIN32_FIND_DATAW found{};
    if (pattern.find_first_of(L"*?") == std::wstring::npos)
        return files;
    HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return files;
    const std::wstring folder = pattern.substr(0, pattern.find_last_of(L"\\/:") + 1);
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            files.push_back(FromWide(folder + &found.cFileName[0]));
    } while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
    std::sort(files.begin(), files.end());
    return files;
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

std::optional<std::string> ReadWineRegistry(std::string_view, std::string_view) {
    return std::nullopt;
}

FilePath FromWindowsPath(std::string_view path) {
    return FilePath::FromWindowsForm(path);
}

std::string ForWindowsPrograms(const FilePath& path) {
    return path.InWindowsForm();
}

char PathSeparator() {
    return '\\';
}

// Large pages need a privilege that users lack.
void* AllocateForList(std::size_t size) {
    return ::operator new(size);
}

void FreeFromList(void* memory, std::size_t) noexcept {
    ::operator delete(memory);
}

std::vector<std::string> StartCommandLine(int, char**) {
    SetConsoleOutputCP(CP_UTF8);
    for (FILE* const stream : {stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    int count = 0;
    std::vector<std::string> arguments;
    if (wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count); wide != nullptr) {
        for (int i = 1; i < count; ++i) {
            std::vector<std::string> files = FilesThatFit(wide[i]);
            if (files.empty())
                files.push_back(FromWide(wide[i]));
            arguments.insert(arguments.end(), files.begin(), files.end());
        }
        LocalFree(wide);
    }
    return arguments;
}

bool ErrorsGoToTerminal() {
    DWORD mode = 0; // only a console has a mode
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
}

std::string CommandLineText(int, char**) {
    // The program's name ends at its closing quote, or at the first blank.
    std::wstring_view line = GetCommandLineW();
    const bool isQuoted = line.starts_with(L'"');
    const std::size_t end = line.find(isQuoted ? L'"' : L' ', isQuoted ? 1 : 0);
    line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(L" \t"), line.size()));
    std::wstring file(line.substr(0, line.find_last_not_of(L" \t") + 1));
    std::erase(file, L'"');
    return FromWide(file);
}

} // namespace railwright
