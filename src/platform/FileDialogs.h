#pragma once

#include "platform/Desktop.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace railwright {

/// Flags of OpenFileName. Windows dialogs also get any other flags; elsewhere those are ignored.
inline constexpr std::int32_t OFN_READONLY = 1;
inline constexpr std::int32_t OFN_OVERWRITEPROMPT = 2;
inline constexpr std::int32_t OFN_HIDEREADONLY = 4;
inline constexpr std::int32_t OFN_ENABLEHOOK = 32;
inline constexpr std::int32_t OFN_ENABLETEMPLATE = 64;
inline constexpr std::int32_t OFN_FILEMUSTEXIST = 4096;

/// The request to a file dialog, and its answer.
struct OpenFileName {
    WindowHandle hwndOwner = NoWindow;
    /// Alternating labels and patterns, each ended by a NUL, with an extra NUL at the end. A pattern is a
    /// list of masks separated by ";".
    std::string lpstrFilter = {};
    /// Index of the selected filter, from 1.
    std::int32_t nFilterIndex = 0;
    /// A file name, ended by a NUL and padded with NULs to nMaxFile characters of UTF-8.
    std::string lpstrFile = {};
    std::size_t nMaxFile = 0;
    /// The name without its folder, in the same form.
    std::string lpstrFileTitle = {};
    std::size_t nMaxFileTitle = 0;
    /// If empty, the dialog chooses the folder. A folder in lpstrFile takes precedence.
    std::string lpstrInitialDir = {};
    std::string lpstrTitle = {};
    std::int32_t Flags = 0;
    /// The extension added to a name without one. Has no leading dot.
    std::string lpstrDefExt = {};
};

/// Lets the user pick a file to open, modally.
/// @return 1 if a file was picked; lpstrFile, lpstrFileTitle and nFilterIndex then describe it. 0 on cancel;
/// the record is then unchanged. If a name does not fit its buffer, the user is asked again.
std::int32_t GetOpenFileName(OpenFileName& dialog);

/// Lets the user pick a file to save, in the same way as GetOpenFileName.
std::int32_t GetSaveFileName(OpenFileName& dialog);

} // namespace railwright
