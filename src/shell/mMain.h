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

/// The simulator's folder, with a separator at its end; empty if it was not found.
extern FilePath sNoLimitsPath;
/// Which of the two documents is the one in hand, one of CurrentDocument.
extern std::int16_t iDocumentKind;
/// Path of the document's file, as the user or the command line gave it.
extern FilePath sDocumentFile;
/// Whether the document differs from its file.
extern bool bDocumentChanged;

/// Looks for the simulator's folder: beside the program, in the registry, and then by asking the user.
/// @return whether sNoLimitsPath was set.
bool LocateNoLimitsPath();

/// Opens a document in the place of the one in hand, whose changes are lost without a question. A file that
/// cannot be opened leaves no document.
/// @param sFile empty asks the user.
/// @return whether a document was opened.
bool OpenNoLimitsFile(FilePath sFile);

/// Asks for a name and saves the document under it. Without a document it says so and writes nothing. If the
/// document was saved under a name with another extension, it first asks whether to go on with the name that
/// was written; otherwise nothing is written. A save that fails leaves everything as it was.
/// @return false only if a save was tried and failed.
bool SaveNoLimitsFile();

/// Tells where interrupted saves have left the old content of files, if there are any.
void ShowInterruptedSaves();

/// Brings all that shows Track up to date: previews, report, and the panels of Shuttle Make and of
/// the 3DS Renamer. It marks no change.
void RefreshTrackTools();
/// The same for Element.
void RefreshElementTools();

/// Runs a track tool: changes Track, refreshes, marks the change. Without a document it says so; with an
/// element it does nothing.
void ApplyTrackTool(const std::function<void()>& change);
/// The same for a tool of elements.
void ApplyElementTool(const std::function<void()>& change);

} // namespace railwright
