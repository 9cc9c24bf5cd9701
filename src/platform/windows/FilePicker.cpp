#include "platform/FilePicker.h"

#include "platform/windows/Wide.h"

#include <windows.h>

#include <commdlg.h>

#include <cderr.h>

namespace railwright {
namespace {

/// The maximum length of a path in characters.
constexpr std::size_t PathBuffer = 32768;

/// Restores the current folder, which a dialog changes. Relative names would otherwise refer to other files.
class KeptFolder {
public:
    KeptFolder() : folder(GetCurrentDirectoryW(0, nullptr), 0) {
        GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    }
    ~KeptFolder() { SetCurrentDirectoryW(folder.c_str()); }
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

private:
    std::wstring folder;
};

/// Joins labels and masks, each ended by a NUL. The terminator of the string is the final NUL.
std::wstring SystemFilter(const std::vector<FileFilter>& filters) {
    std::wstring pieces;
    for (const auto& [label, masks] : filters)
        pieces += ToWide(label) + L'\0' + ToWide(masks) + L'\0';
    return pieces;
}

} // namespace

std::optional<PickedFile> PickFile(const FileQuestion& question) {
    const KeptFolder kept;
    const std::wstring filter = SystemFilter(question.Filters);
    const std::wstring title = ToWide(question.Title);
    const std::wstring extension = ToWide(question.DefaultExtension);
    std::wstring folder = ToWide(question.Folder.Native());
    std::wstring path = ToWide(question.Path.Native());
    path.resize(PathBuffer);

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = question.Owner == NoWindow ? nullptr : reinterpret_cast<HWND>(question.Owner);
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = static_cast<DWORD>(question.FilterIndex);
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.lpstrTitle = title.c_str();
    dialog.Flags = static_cast<DWORD>(question.Flags) | OFN_EXPLORER | OFN_NOCHANGEDIR;
    dialog.lpstrDefExt = extension.c_str();

    const auto show = question.Purpose == FilePurpose::Open ? ::GetOpenFileNameW : ::GetSaveFileNameW;
    bool picked = show(&dialog) != FALSE;
    if (!picked && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        // The dialog does not open with this invalid name in its field.
        folder = ToWide(question.Path.Folder().Native());
        if (!folder.empty())
            dialog.lpstrInitialDir = folder.c_str();
        path.front() = 0;
        picked = show(&dialog) != FALSE;
    }
    if (!picked)
        return std::nullopt;
    return PickedFile{FilePath::FromUser(FromWide(path.c_str())),
                      static_cast<std::int32_t>(dialog.nFilterIndex)};
}

} // namespace railwright
