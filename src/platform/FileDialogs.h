#pragma once

#include "platform/Desktop.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace railwright {

/// Flags of OpenFileName. The others of the platform's pass through without effect.
inline constexpr std::int32_t OFN_READONLY = 1;
inline constexpr std::int32_t OFN_OVERWRITEPROMPT = 2;
inline constexpr std::int32_t OFN_HIDEREADONLY = 4;
inline constexpr std::int32_t OFN_ENABLEHOOK = 32;
inline constexpr std::int32_t OFN_ENABLETEMPLATE = 64;
inline constexpr std::int32_t OFN_FILEMUSTEXIST = 4096;

/// What a file dialog is asked, and what it answers.
struct OpenFileName {
    WindowHandle hwndOwner = NoWindow;
    /// Labels and patterns by turns, each ended by a NUL, with one more NUL at the end. A pattern is a list
    /// of masks with ";" between them.
    std::string lpstrFilter = {};
    /// The filter in use, from 1.
    std::int32_t nFilterIndex = 0;
    /// A file name, ended by a NUL and filled with NULs up to nMaxFile characters of UTF-8.
    std::string lpstrFile = {};
    std::size_t nMaxFile = 0;
    /// The same for the name without its folder.
    std::string lpstrFileTitle = {};
    std::size_t nMaxFileTitle = 0;
    /// Empty leaves the folder to the dialog. A folder in lpstrFile goes before it.
    std::string lpstrInitialDir = {};
    std::string lpstrTitle = {};
    std::int32_t Flags = 0;
    /// Added to a name without extension, and without a dot itself.
    std::string lpstrDefExt = {};
};

/// Lets the user pick a file to open, modally.
/// @return 1 when one was picked: lpstrFile, lpstrFileTitle, nFilterIndex and Flags tell what; 0 on cancel
/// and for a name that its buffer cannot hold, and then nothing has changed.
std::int32_t GetOpenFileName(OpenFileName& dialog);

/// The same for a file to save.
std::int32_t GetSaveFileName(OpenFileName& dialog);

} // namespace railwright
