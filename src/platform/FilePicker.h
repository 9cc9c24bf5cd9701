#pragma once

#include "platform/Desktop.h"
#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace railwright {

/// An entry in the list of file types.
struct FileFilter {
    std::string Label;
    /// Masks separated by ";".
    std::string Masks;
};

enum class FilePurpose { Open, Save };

/// Flags of FileQuestion. Only the dialogs of Windows use others.
inline constexpr std::int32_t OFN_READONLY = 1;
inline constexpr std::int32_t OFN_OVERWRITEPROMPT = 2;
inline constexpr std::int32_t OFN_HIDEREADONLY = 4;
inline constexpr std::int32_t OFN_ENABLEHOOK = 32;
inline constexpr std::int32_t OFN_ENABLETEMPLATE = 64;
inline constexpr std::int32_t OFN_FILEMUSTEXIST = 4096;

/// The request to a file dialog.
struct FileQuestion {
    WindowHandle Owner = NoWindow;
    FilePurpose Purpose = FilePurpose::Open;
    std::vector<FileFilter> Filters;
    /// Index of the initial filter, from 1.
    std::int32_t FilterIndex = 0;
    /// The initial name. Its folder, if it has one, is the initial folder.
    FilePath Path;
    /// The initial folder if Path has none. If empty, the dialog chooses the folder.
    FilePath Folder;
    std::string Title;
    /// OFN_ flags.
    std::int32_t Flags = 0;
    /// The extension added to a name without one. Has no leading dot.
    std::string DefaultExtension;
};

struct PickedFile {
    FilePath Path;
    /// Index of the selected filter, from 1.
    std::int32_t FilterIndex = 0;
};

/// Lets the user pick one file, modally. Does not limit the length of paths.
/// @return nothing on cancel.
std::optional<PickedFile> PickFile(const FileQuestion& question);

} // namespace railwright
