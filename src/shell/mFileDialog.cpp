#include "shell/mFileDialog.h"

#include "platform/FileDialogs.h"

#include <algorithm>

namespace railwright {
namespace {

/// Converts a filter to labels and patterns, each ended by a NUL, with an extra NUL at the end.
std::string PlatformFilter(std::string filter) {
    std::replace(filter.begin(), filter.end(), '|', '\0');
    std::replace(filter.begin(), filter.end(), ':', '\0');
    return filter + std::string(2, '\0');
}

std::size_t CharacterCount(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char unit) { return (unit & 0xC0) != 0x80; }));
}

/// Returns `name` padded with NULs; only NULs if it does not fit.
std::string Buffer(const std::string& name) {
    const std::size_t length = CharacterCount(name);
    return length < FileNameBuffer ? name + std::string(FileNameBuffer - length, '\0')
                                   : std::string(FileNameBuffer, '\0');
}

std::string UpToNul(const std::string& buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

/// @param flags the flags for the dialog's Booleans.
/// @param noFilter the filter index after Cancel.
bool Ask(FileDialog& dialog, std::int32_t flags, std::int32_t noFilter, std::int32_t (*show)(OpenFileName&)) {
    dialog.sFilter = PlatformFilter(dialog.sFilter);
    OpenFileName record = {.hwndOwner = dialog.iOwner,
                           .lpstrFilter = dialog.sFilter,
                           .nFilterIndex = dialog.iFilterIndex,
                           .lpstrFile = Buffer(dialog.sFileName),
                           .nMaxFile = FileNameBuffer,
                           .lpstrFileTitle = Buffer(dialog.sFileTitle),
                           .nMaxFileTitle = FileNameBuffer,
                           .lpstrInitialDir = dialog.sInitialDir,
                           .lpstrTitle = dialog.sDialogTitle,
                           .Flags = flags | (dialog.iFlags & ~(OFN_ENABLEHOOK | OFN_ENABLETEMPLATE)),
                           .lpstrDefExt = dialog.sDefaultExt};

    const bool chosen = show(record) == 1;
    dialog.sFileName = chosen ? UpToNul(record.lpstrFile) : "";
    dialog.sFileTitle = chosen ? UpToNul(record.lpstrFileTitle) : "";
    dialog.iFlags = chosen ? record.Flags : 0;
    dialog.iFilterIndex = chosen ? record.nFilterIndex : noFilter;
    return chosen;
}

} // namespace

bool ShowOpenFileDialog(FileDialog& dialog) {
    const std::int32_t flags = (dialog.bFileMustExist ? OFN_FILEMUSTEXIST : 0) |
                               (dialog.bReadOnly ? OFN_READONLY : 0) |
                               (dialog.bHideReadOnly ? OFN_HIDEREADONLY : 0);
    if (!Ask(dialog, flags, -1, GetOpenFileName))
        return false;
    dialog.bReadOnly = dialog.bReadOnly || (dialog.iFlags & OFN_READONLY) != 0;
    return true;
}

bool ShowSaveFileDialog(FileDialog& dialog) {
    return Ask(dialog, OFN_HIDEREADONLY | (dialog.bOverwritePrompt ? OFN_OVERWRITEPROMPT : 0), 0,
               GetSaveFileName);
}

} // namespace railwright
