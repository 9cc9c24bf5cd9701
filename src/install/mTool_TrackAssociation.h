#pragma once

#include <cstdint>
#include <string>

namespace railwright {

/// The simulator's folder in UTF-8, with a final backslash. Empty if it is unknown.
extern std::string sAssocFolder;

/// Sets the simulator's folder for the file association.
/// @param sNoLimitsPath Windows path, with or without a final backslash. Empty if the simulator was not
/// found.
void PrepareFileAssociation(const std::string& sNoLimitsPath);

/// Actions of Windows Explorer for a track file.
struct AssociationChoices {
    /// 0 ride, 1 edit, 2 terraform.
    std::int16_t iDoubleClick = 0;
    /// Whether the menu offers the simulator, the editor, the terraformer and Railwright. Other verbs of
    /// these four are removed.
    bool bRide = true;
    bool bEdit = true;
    bool bTerraform = true;
    bool bTool = true;
    /// 0 the simulator's icon, 1 the editor's, 2 to 6 Railwright's, 7 the one in sIconFile.
    std::int16_t iIcon = 0;
    /// Windows path in UTF-8. Only used with icon 7, even if it is empty.
    std::string sIconFile = {};
};

/// Sets the menu, the double-click and the icon of track files in Windows Explorer. Entries that cannot be
/// written are unchanged. Does nothing if the simulator's folder is unknown.
void SetTrackAssociation(const AssociationChoices& choices);

} // namespace railwright
