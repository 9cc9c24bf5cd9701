#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <functional>
#include <string>

namespace railwright {

/// Values of iDocumentKind.
namespace CurrentDocument {
inline constexpr std::int16_t None = 0;
inline constexpr std::int16_t Track = 1;
inline constexpr std::int16_t Element = 2;
} // namespace CurrentDocument

/// The simulator's folder, with a trailing separator; empty if not found.
extern FilePath sNoLimitsPath;
/// The kind of the open document, one of CurrentDocument.
extern std::int16_t iDocumentKind;
/// Path of the document's file, as given by the user or on the command line.
extern FilePath sDocumentFile;
/// The document differs from its file.
extern bool bDocumentChanged;

/// Searches for the simulator's folder next to the program and in the registry, then asks the user.
/// @return whether sNoLimitsPath was set.
bool LocateNoLimitsPath();

/// Opens a document and replaces the open one, without asking about its changes. If the file cannot be
/// opened, no document is open.
/// @param sFile if empty, the user is asked.
/// @return whether a document was opened.
bool OpenNoLimitsFile(FilePath sFile);

/// Asks for a name and saves the document under it. Without a document, shows a note and writes nothing.
/// After a save that added an extension to the name, first asks whether to continue with the written name; if
/// not, writes nothing. A failed save changes nothing.
/// @return false only if a save failed.
bool SaveNoLimitsFile();

/// Shows the files with old content left by interrupted saves, if any.
void ShowInterruptedSaves();

/// Updates everything that displays Track: previews, report, and the panels of Shuttle Make and the 3DS
/// Renamer. Does not mark a change.
void RefreshTrackTools();
/// Updates everything that displays Element.
void RefreshElementTools();

/// Runs a track tool: changes Track, refreshes, marks the change. Shows a note without a document. Does
/// nothing if an element is open.
void ApplyTrackTool(const std::function<void()>& change);
/// Runs an element tool in the same way.
void ApplyElementTool(const std::function<void()>& change);

} // namespace railwright
