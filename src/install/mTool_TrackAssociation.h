#pragma once

#include <cstdint>
#include <string>

namespace railwright {

/// The simulator's folder with a backslash at its end, as UTF-8; empty while it is not known.
extern std::string sAssocFolder;

/// Readies the file association for the simulator's folder.
/// @param sNoLimitsPath in the form of Windows, with or without a backslash at its end; empty if the
/// simulator was not found.
void PrepareFileAssociation(const std::string& sNoLimitsPath);

/// Sets what Windows Explorer does with a track file: the verbs of its menu, the one of the double-click, its
/// icon. Entries that cannot be written stay as they were. Without the simulator's folder nothing happens.
/// @param iDoubleClick 0 ride, 1 edit, 2 terraform.
/// @param bRide, bEdit, bTerraform, bTool whether the menu offers the simulator, the editor, the terraformer
/// and Railwright. A verb that it does not offer is removed.
/// @param iIcon 0 the simulator's, 1 the editor's, 2 to 6 Railwright's own, 7 that of `sIconFile`.
/// @param sIconFile UTF-8 in the form of Windows; only used with icon 7, and there also if it is empty.
void SetTrackAssociation(std::int16_t iDoubleClick, bool bRide, bool bEdit, bool bTerraform, bool bTool,
                         std::int16_t iIcon, const std::string& sIconFile);

} // namespace railwright
