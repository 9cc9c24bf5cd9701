#pragma once

#include "platform/Desktop.h"

#include <cstdint>
#include <string>

namespace railwright {

/// Characters in each of the two name buffers of a dialog, the NUL at the end included.
inline constexpr std::size_t FileNameBuffer = 260;

/// Lets the user choose a file to open.
/// All names are as the user knows them.
/// @param sFileName initial name, and on True the full path chosen; empty on False. A name that has no room
/// in the buffer is not put into the dialog.
/// @param sFileTitle the same for the name without its folder.
/// @param bReadOnly whether the read-only box is ticked; becomes True if it was so on return.
/// @param sFilter labels and patterns with "|" between them; it is changed into the platform's form, so a
/// caller that asks again builds it again.
/// @param iFilterIndex from 1; on False -1.
/// @param sInitialDir empty leaves the folder to the platform.
/// @param sDefaultExt added to a name without extension, without its dot.
/// @param iFlags further OFN_ flags, and on True those that the platform returned; on False 0.
/// @return whether a file was chosen.
bool ShowOpenFileDialog(std::string& sFileName, std::string& sFileTitle, bool bFileMustExist, bool& bReadOnly,
                        bool bHideReadOnly, std::string& sFilter, std::int32_t& iFilterIndex,
                        const std::string& sInitialDir, const std::string& sDialogTitle,
                        const std::string& sDefaultExt, WindowHandle iOwner, std::int32_t& iFlags);

/// Lets the user choose a name to save under. As ShowOpenFileDialog, but iFilterIndex is 0 on False.
/// @param bOverwritePrompt whether the name of an existing file asks for confirmation.
bool ShowSaveFileDialog(std::string& sFileName, std::string& sFileTitle, bool bOverwritePrompt,
                        std::string& sFilter, std::int32_t& iFilterIndex, const std::string& sInitialDir,
                        const std::string& sDialogTitle, const std::string& sDefaultExt, WindowHandle iOwner,
                        std::int32_t& iFlags);

} // namespace railwright
