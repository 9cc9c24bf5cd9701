#include "shell/mFileDialog.h"

#include "platform/FileDialogs.h"

#include <algorithm>

namespace railwright {
namespace {

/// Labels and patterns, each ended by a NUL, with one more NUL at the end.
std::string PlatformFilter(std::string filter) {
    std::replace(filter.begin(), filter.end(), '|', '\0');
    std::replace(filter.begin(), filter.end(), ':', '\0');
    return filter + std::string(2, '\0');
}

std::size_t CharacterCount(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char unit) { return (unit & 0xC0) != 0x80; }));
}

/// `name` with NULs behind it; nothing but NULs if there is no room for it.
std::string Buffer(const std::string& name) {
    const std::size_t length = CharacterCount(name);
    return length < FileNameBuffer ? name + std::string(FileNameBuffer - length, '\0')
                                   : std::string(FileNameBuffer, '\0');
}

std::string UpToNul(const std::string& buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

/// What the two dialogs have in common.
struct Request {
    std::string& FileName;
    std::string& FileTitle;
    std::string& Filter;
    std::int32_t& FilterIndex;
    std::int32_t& Flags;
    /// The filter index after Cancel.
    std::int32_t NoFilter;
};

bool Ask(const Request& request, OpenFileName record, std::int32_t (*show)(OpenFileName&)) {
    record.Flags |= request.Flags & ~(OFN_ENABLEHOOK | OFN_ENABLETEMPLATE);
    request.Filter = PlatformFilter(request.Filter);
    record.lpstrFilter = request.Filter;
    record.nFilterIndex = request.FilterIndex;
    record.lpstrFile = Buffer(request.FileName);
    record.lpstrFileTitle = Buffer(request.FileTitle);
    record.nMaxFile = record.nMaxFileTitle = FileNameBuffer;

    const bool chosen = show(record) == 1;
    request.FileName = chosen ? UpToNul(record.lpstrFile) : "";
    request.FileTitle = chosen ? UpToNul(record.lpstrFileTitle) : "";
    request.Flags = chosen ? record.Flags : 0;
    request.FilterIndex = chosen ? record.nFilterIndex : request.NoFilter;
    return chosen;
}

} // namespace

bool ShowOpenFileDialog(std::string& sFileName, std::string& sFileTitle, bool bFileMustExist, bool& bReadOnly,
                        bool bHideReadOnly, std::string& sFilter, std::int32_t& iFilterIndex,
                        const std::string& sInitialDir, const std::string& sDialogTitle,
                        const std::string& sDefaultExt, WindowHandle iOwner, std::int32_t& iFlags) {
    OpenFileName record;
    record.hwndOwner = iOwner;
    record.lpstrInitialDir = sInitialDir;
    record.lpstrTitle = sDialogTitle;
    record.lpstrDefExt = sDefaultExt;
    record.Flags = (bFileMustExist ? OFN_FILEMUSTEXIST : 0) | (bReadOnly ? OFN_READONLY : 0) |
                   (bHideReadOnly ? OFN_HIDEREADONLY : 0);
    if (!Ask({sFileName, sFileTitle, sFilter, iFilterIndex, iFlags, -1}, record, GetOpenFileName))
        return false;
    bReadOnly = bReadOnly || (iFlags & OFN_READONLY) != 0;
    return true;
}

bool ShowSaveFileDialog(std::string& sFileName, std::string& sFileTitle, bool bOverwritePrompt,
                        std::string& sFilter, std::int32_t& iFilterIndex, const std::string& sInitialDir,
                        const std::string& sDialogTitle, const std::string& sDefaultExt, WindowHandle iOwner,
                        std::int32_t& iFlags) {
    OpenFileName record;
    record.hwndOwner = iOwner;
    record.lpstrInitialDir = sInitialDir;
    record.lpstrTitle = sDialogTitle;
    record.lpstrDefExt = sDefaultExt;
    record.Flags = OFN_HIDEREADONLY | (bOverwritePrompt ? OFN_OVERWRITEPROMPT : 0);
    return Ask({sFileName, sFileTitle, sFilter, iFilterIndex, iFlags, 0}, record, GetSaveFileName);
}

} // namespace railwright
