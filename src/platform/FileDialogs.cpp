#include "platform/FileDialogs.h"

#include "platform/FilePicker.h"

#include <algorithm>
#include <optional>

namespace railwright {
namespace {

std::string UpToNul(const std::string& buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

/// Parses a filter list in the platform's form.
std::vector<FileFilter> FiltersOf(const std::string& filter) {
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < filter.size() && filter[at] != '\0'; at += pieces.back().size() + 1)
        pieces.push_back(UpToNul(filter.substr(at)));
    std::vector<FileFilter> filters;
    for (std::size_t at = 0; at + 1 < pieces.size(); at += 2)
        filters.push_back({pieces[at], pieces[at + 1]});
    return filters;
}

std::size_t CharacterCount(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char unit) { return (unit & 0xC0) != 0x80; }));
}

/// Puts a string into a buffer of `size` characters and pads it with NULs.
/// @return whether the string and at least one NUL fit.
bool Fill(std::string& buffer, const std::string& content, std::size_t size) {
    const std::size_t length = CharacterCount(content);
    if (length >= size)
        return false;
    buffer = content + std::string(size - length, '\0');
    return true;
}

std::int32_t Run(OpenFileName& record, FilePurpose purpose) {
    FileQuestion question;
    question.Owner = record.hwndOwner;
    question.Purpose = purpose;
    question.Filters = FiltersOf(record.lpstrFilter);
    question.FilterIndex = record.nFilterIndex;
    question.Path = FilePath::FromUser(UpToNul(record.lpstrFile));
    question.Folder = FilePath::FromUser(record.lpstrInitialDir);
    question.Title = record.lpstrTitle;
    question.Flags = record.Flags;
    question.DefaultExtension = record.lpstrDefExt;

    while (const std::optional<PickedFile> picked = PickFile(question)) {
        OpenFileName answer = record;
        if (Fill(answer.lpstrFile, picked->Path.Native(), record.nMaxFile) &&
            Fill(answer.lpstrFileTitle, picked->Path.Name().Native(), record.nMaxFileTitle)) {
            answer.nFilterIndex = picked->FilterIndex;
            record = answer;
            return 1;
        }
        ShowMessageBox(record.hwndOwner,
                       "The name of this file with its folders is too long.\r\nIt may have " +
                           std::to_string(record.nMaxFile - 1) + " characters.",
                       record.lpstrTitle, MessageButtons::Ok, MessageIcon::Exclamation);
    }
    return 0;
}

} // namespace

std::int32_t GetOpenFileName(OpenFileName& dialog) {
    return Run(dialog, FilePurpose::Open);
}

std::int32_t GetSaveFileName(OpenFileName& dialog) {
    return Run(dialog, FilePurpose::Save);
}

} // namespace railwright
