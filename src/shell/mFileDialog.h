#pragma once

#include "platform/Desktop.h"

#include <cstdint>
#include <string>

namespace railwright {

/// Characters in each of the two name buffers of a dialog, the NUL at the end included.
inline constexpr std::size_t FileNameBuffer = 260;

/// What a file dialog is asked, and what it answers. All names are as the user knows them.
struct FileDialog {
    /// Initial name, and on True the full path chosen; empty on False. A name that has no room in the buffer
    /// is not put into the dialog.
    std::string sFileName = {};
    /// The same for the name without its folder.
    std::string sFileTitle = {};
    /// Labels and patterns with "|" between them; it is changed into the platform's form, so a caller that
    /// asks again builds it again.
    std::string sFilter = {};
    /// From 1; on False -1 behind opening and 0 behind saving.
    std::int32_t iFilterIndex = 1;
    /// Empty leaves the folder to the platform.
    std::string sInitialDir = {};
    std::string sDialogTitle = {};
    /// Added to a name without extension, without its dot.
    std::string sDefaultExt = {};
    WindowHandle iOwner = NoWindow;
    /// Further OFN_ flags, and on True those that the platform returned; on False 0.
    std::int32_t iFlags = 0;

    /// Opening: only a file that exists can be chosen.
    bool bFileMustExist = true;
    /// Opening: the read-only box is ticked; becomes True if it was so on return.
    bool bReadOnly = false;
    bool bHideReadOnly = true;
    /// Saving: the name of an existing file asks for confirmation.
    bool bOverwritePrompt = true;
};

/// Lets the user choose a file to open. @return whether one was chosen.
bool ShowOpenFileDialog(FileDialog& dialog);

/// Lets the user choose a name to save under. @return whether one was chosen.
bool ShowSaveFileDialog(FileDialog& dialog);

} // namespace railwright
