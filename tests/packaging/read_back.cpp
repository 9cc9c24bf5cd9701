// Reads the resources and icons of the released programs as Windows does, for a test.

#include "install/mTool_TrackAssociation.h"
#include "platform/CommandLine.h"
#include "platform/windows/Wide.h"

#include <array>
#include <fstream>
#include <iostream>
#include <utility>
#include <vector>

#include <windows.h>

#include <shellapi.h>

namespace railwright {
namespace {

void Print(const std::string& name, std::wstring_view value) {
    std::cout << name << ": " << FromWide(value) << '\n';
}

void PrintVersion(const std::wstring& file) {
    std::vector<char> version(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(version.size()), version.data());
    void* found = nullptr;
    UINT length = 0;
    if (VerQueryValueW(version.data(), L"\\", &found, &length)) {
        const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
        for (const auto& [high, low] : {std::pair{fixed.dwFileVersionMS, fixed.dwFileVersionLS},
                                        {fixed.dwProductVersionMS, fixed.dwProductVersionLS}})
            std::cout << HIWORD(high) << '.' << LOWORD(high) << '.' << HIWORD(low) << '.' << LOWORD(low)
                      << ' ';
        std::cout << (fixed.dwFileType == VFT_APP ? "program" : "library") << '\n';
    }
    for (const std::string name : {"CompanyName", "FileDescription", "FileVersion", "InternalName",
                                   "LegalCopyright", "OriginalFilename", "ProductName", "ProductVersion"})
        if (VerQueryValueW(version.data(), ToWide("\\StringFileInfo\\040904B0\\" + name).c_str(), &found,
                           &length))
            Print(name, static_cast<const wchar_t*>(found));
}

void PrintManifest(const std::wstring& file) {
    ACTCTXW source{};
    source.cbSize = sizeof source;
    source.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    source.lpSource = file.c_str();
    source.lpResourceName = MAKEINTRESOURCEW(1);
    HANDLE const context = CreateActCtxW(&source);
    if (context == INVALID_HANDLE_VALUE)
        return;

    ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION rights{};
    QueryActCtxW(0, context, nullptr, RunlevelInformationInActivationContext, &rights, sizeof rights,
                 nullptr);
    std::cout << "rights: "
              << (rights.RunLevel == ACTCTX_RUN_LEVEL_AS_INVOKER && rights.UiAccess == 0 ? "asInvoker"
                                                                                         : "other")
              << '\n';
    const std::wstring family = L"http://schemas.microsoft.com/SMI/";
    for (const auto& [name, year] : {std::pair{"dpiAware", "2005"},
                                     {"dpiAwareness", "2016"},
                                     {"longPathAware", "2016"},
                                     {"activeCodePage", "2019"}}) {
        std::array<wchar_t, 64> value{};
        if (QueryActCtxSettingsW(0, context, (family + ToWide(year) + L"/WindowsSettings").c_str(),
                                 ToWide(name).c_str(), value.data(), value.size(), nullptr))
            Print(name, value.data());
    }
    ULONG_PTR cookie = 0;
    ActivateActCtx(context, &cookie);
    ACTCTX_SECTION_KEYED_DATA found{};
    found.cbSize = sizeof found;
    const bool isNew = FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION,
                                                L"comctl32.dll", &found);
    std::cout << "common controls: " << (isNew ? "6" : "5") << '\n';
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

/// Saves an icon with its transparency.
void Store(HICON icon, const std::string& name) {
    ICONINFO parts{};
    BITMAP size{};
    GetIconInfo(icon, &parts);
    GetObjectW(parts.hbmColor, sizeof size, &size);
    BITMAPINFO layout{};
    layout.bmiHeader = {sizeof layout.bmiHeader, size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<char> pixels(std::size_t{4} * size.bmWidth * size.bmHeight);
    HDC const screen = GetDC(nullptr);
    GetDIBits(screen, parts.hbmColor, 0, static_cast<UINT>(size.bmHeight), pixels.data(), &layout,
              DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    for (std::size_t i = 0; i < pixels.size(); i += 4)
        std::swap(pixels[i], pixels[i + 2]); // BGR to RGB
    std::ofstream file(name + '-' + std::to_string(size.bmWidth) + ".pam", std::ios::binary);
    file << "P7\nWIDTH " << size.bmWidth << "\nHEIGHT " << size.bmHeight
         << "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
    file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
}

/// Chooses each of Railwright's icons in turn for a simulator in the folder. Saves the icons that the
/// registry entry refers to as icon-NUMBER-WIDTH.pam, where NUMBER is that of the choice.
void StoreAssociatedIcons(const std::string& folder) {
    constexpr const char* Place = "Software\\Railwright Icons";
    HKEY place = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, Place, &place);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, place);
    PrepareFileAssociation(folder);
    for (std::int16_t choice = 2; choice <= 6; ++choice) {
        SetTrackAssociation({.iIcon = choice});
        std::array<wchar_t, 1024> entry{};
        DWORD size = sizeof entry;
        RegGetValueW(HKEY_CLASSES_ROOT, L"NoLimits.Trackfile\\DefaultIcon", nullptr, RRF_RT_REG_SZ, nullptr,
                     entry.data(), &size);
        const std::wstring text = entry.data();
        const std::size_t comma = text.rfind(L',');
        const std::wstring library = text.substr(0, comma);
        const int number = std::stoi(text.substr(comma + 1));
        std::array<HICON, 4> icons{};
        // If asked for both at once, Wine scales the small icon from the large one.
        ExtractIconExW(library.c_str(), number, &icons[0], nullptr, 1);
        ExtractIconExW(library.c_str(), number, nullptr, &icons[1], 1);
        PrivateExtractIconsW(library.c_str(), number, 48, 48, &icons[2], nullptr, 1, 0);
        PrivateExtractIconsW(library.c_str(), number, 256, 256, &icons[3], nullptr, 1, 0);
        for (HICON const icon : icons)
            Store(icon, "icon-" + std::to_string(choice));
        Print(std::to_string(ExtractIconExW(library.c_str(), -1, nullptr, nullptr, 0)) + " icons",
              text.substr(comma));
    }
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegDeleteTreeA(HKEY_CURRENT_USER, Place);
}

} // namespace
} // namespace railwright

int main(int argc, char** argv) {
    using namespace railwright;
    const std::vector<std::string> arguments = StartCommandLine(argc, argv);
    if (arguments.size() == 2 && arguments[0] == "--icons")
        StoreAssociatedIcons(arguments[1]);
    else
        for (const std::string& file : arguments) {
            PrintVersion(ToWide(file));
            PrintManifest(ToWide(file));
        }
}
