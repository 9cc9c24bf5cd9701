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

/// What the user wants Windows Explorer to do with a track file.
struct AssociationChoices {
    /// 0 ride, 1 edit, 2 terraform.
    std::int16_t iDoubleClick = 0;
    /// Whether the menu offers the simulator, the editor, the terraformer and Railwright. A verb that it does
    /// not offer is removed.
    bool bRide = true;
    bool bEdit = true;
    bool bTerraform = true;
    bool bTool = true;
    /// 0 the simulator's, 1 the editor's, 2 to 6 Railwright's own, 7 that of sIconFile.
    std::int16_t iIcon = 0;
    /// UTF-8 in the form of Windows; only used with icon 7, and there also if it is empty.
    std::string sIconFile = {};
};

/// Sets what Windows Explorer does with a track file: the verbs of its menu, the one of the double-click, its
/// icon. Entries that cannot be written stay as they were. Without the simulator's folder nothing happens.
void SetTrackAssociation(const AssociationChoices& choices);

} // namespace railwright
