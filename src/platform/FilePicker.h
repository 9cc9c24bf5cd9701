#pragma once

#include "platform/Desktop.h"
#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace railwright {

/// A row in the list of file kinds.
struct FileFilter {
    std::string Label;
    /// Masks with ";" between them.
    std::string Masks;
};

enum class FilePurpose { Open, Save };

/// What a file dialog is to show.
struct FileQuestion {
    WindowHandle Owner = NoWindow;
    FilePurpose Purpose = FilePurpose::Open;
    std::vector<FileFilter> Filters;
    /// The filter to begin with, from 1.
    std::int32_t FilterIndex = 0;
    /// The name in the field. Its folder, if it has one, is where the dialog begins.
    FilePath Path;
    /// Where the dialog begins otherwise; empty leaves it to the dialog.
    FilePath Folder;
    std::string Title;
    /// OFN_ flags.
    std::int32_t Flags = 0;
    /// Added to a name without one; without a dot.
    std::string DefaultExtension;
};

struct PickedFile {
    FilePath Path;
    /// The filter in use, from 1.
    std::int32_t FilterIndex = 0;
};

/// Lets the user pick one file, modally. Paths may have any length.
/// @return nothing on Cancel.
std::optional<PickedFile> PickFile(const FileQuestion& question);

} // namespace railwright
