#pragma once

#include "platform/Desktop.h"

#include <cstdint>
#include <string>

namespace railwright {

/// Characters in each name buffer of a dialog, including the final NUL.
inline constexpr std::size_t FileNameBuffer = 260;

/// The request to a file dialog, and its answer. All names are native paths in UTF-8.
struct FileDialog {
    /// The initial name. On True, the full path chosen; on False, empty. An initial name that does not fit
    /// the buffer is ignored.
    std::string sFileName = {};
    /// The name without its folder, in the same form.
    std::string sFileTitle = {};
    /// Labels and patterns separated by "|". The call converts it to the platform's form, so set it again
    /// before each call.
    std::string sFilter = {};
    /// Index from 1. On False, -1 after opening and 0 after saving.
    std::int32_t iFilterIndex = 1;
    /// If empty, the platform chooses the folder.
    std::string sInitialDir = {};
    std::string sDialogTitle = {};
    /// The extension added to a name without one. Has no leading dot.
    std::string sDefaultExt = {};
    WindowHandle iOwner = NoWindow;
    /// Additional OFN_ flags. On True, the flags that the platform returned; on False, 0.
    std::int32_t iFlags = 0;

    /// When opening, only an existing file can be chosen.
    bool bFileMustExist = true;
    /// When opening, the read-only box is ticked. Becomes True if the user ticked it.
    bool bReadOnly = false;
    bool bHideReadOnly = true;
    /// When saving, choosing an existing file asks for confirmation.
    bool bOverwritePrompt = true;
};

/// Lets the user choose a file to open. @return whether one was chosen.
bool ShowOpenFileDialog(FileDialog& dialog);

/// Lets the user choose a name to save under. @return whether one was chosen.
bool ShowSaveFileDialog(FileDialog& dialog);

} // namespace railwright
