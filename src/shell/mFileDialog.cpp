#include "shell/mFileDialog.h"

#include "platform/FilePicker.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace railwright {
namespace {

/// Converts a filter to labels and patterns, each ended by a NUL, with an extra NUL at the end.
std::string PlatformFilter(std::string filter) {
    std::replace(filter.begin(), filter.end(), '|', '\0');
    std::replace(filter.begin(), filter.end(), ':', '\0');
    return filter + std::string(2, '\0');
}

std::string UpToNul(const std::string& characters) {
    return characters.substr(0, characters.find('\0'));
}

/// Returns the labels and masks of a filter in the platform's form.
std::vector<FileFilter> FiltersOf(const std::string& filter) {
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < filter.size() && filter[at] != '\0'; at += pieces.back().size() + 1)
        pieces.push_back(UpToNul(filter.substr(at)));
    std::vector<FileFilter> filters;
    for (std::size_t at = 0; at + 1 < pieces.size(); at += 2)
        filters.push_back({pieces[at], pieces[at + 1]});
    return filters;
}

/// @return whether a name and the NUL after it have room in the buffer.
bool Fits(const std::string& utf8) {
    const auto characters =
        std::count_if(utf8.begin(), utf8.end(), [](char unit) { return (unit & 0xC0) != 0x80; });
    return static_cast<std::size_t>(characters) < FileNameBuffer;
}

/// @param flags the flags for the Booleans of the dialog.
/// @param noFilter the filter index after Cancel.
bool Ask(FileDialog& dialog, FilePurpose purpose, std::int32_t flags, std::int32_t noFilter) {
    dialog.sFilter = PlatformFilter(dialog.sFilter);
    FileQuestion question;
    question.Owner = dialog.iOwner;
    question.Purpose = purpose;
    question.Filters = FiltersOf(dialog.sFilter);
    question.FilterIndex = dialog.iFilterIndex;
    question.Path = FilePath::FromUser(Fits(dialog.sFileName) ? UpToNul(dialog.sFileName) : "");
    question.Folder = FilePath::FromUser(dialog.sInitialDir);
    question.Title = dialog.sDialogTitle;
    question.Flags = flags | (dialog.iFlags & ~(OFN_ENABLEHOOK | OFN_ENABLETEMPLATE));
    question.DefaultExtension = dialog.sDefaultExt;

    while (const std::optional<PickedFile> picked = PickFile(question)) {
        if (Fits(picked->Path.Native())) {
            dialog.sFileName = picked->Path.Native();
            dialog.sFileTitle = picked->Path.Name().Native();
            dialog.iFlags = question.Flags;
            dialog.iFilterIndex = picked->FilterIndex;
            return true;
        }
        ShowMessageBox(dialog.iOwner,
                       "The name of this file with its folders is too long.\r\nIt may have " +
                           std::to_string(FileNameBuffer - 1) + " characters.",
                       dialog.sDialogTitle, MessageButtons::Ok, MessageIcon::Exclamation);
    }
    dialog.sFileName = dialog.sFileTitle = "";
    dialog.iFlags = 0;
    dialog.iFilterIndex = noFilter;
    return false;
}

} // namespace

bool ShowOpenFileDialog(FileDialog& dialog) {
    const std::int32_t flags = (dialog.bFileMustExist ? OFN_FILEMUSTEXIST : 0) |
                               (dialog.bReadOnly ? OFN_READONLY : 0) |
                               (dialog.bHideReadOnly ? OFN_HIDEREADONLY : 0);
    if (!Ask(dialog, FilePurpose::Open, flags, -1))
        return false;
    dialog.bReadOnly = dialog.bReadOnly || (dialog.iFlags & OFN_READONLY) != 0;
    return true;
}

bool ShowSaveFileDialog(FileDialog& dialog) {
    const std::int32_t flags = OFN_HIDEREADONLY | (dialog.bOverwritePrompt ? OFN_OVERWRITEPROMPT : 0);
    return Ask(dialog, FilePurpose::Save, flags, 0);
}

} // namespace railwright
