#pragma once

#include "base/Types.h"
#include "platform/NameLookup.h"

#include <cstdint>
#include <string>
#include <vector>

namespace railwright {

/// One environment file of the simulator.
struct EnvironmentEntry {
    /// The .env file.
    railwright::FilePath FilePath;
    /// The file's name without any ".env".
    FileName Name;
    /// There is a subfolder, or anything else, of its name, or it has no texture; and no run was cut off
    /// from organizing it.
    bool Organized = false;
};

/// What the Environment Organizer finds in the simulator's folder.
struct EnvironmentScan {
    /// All environment files, in the order of their names.
    std::vector<EnvironmentEntry> EnvironmentList;
    /// How many of them are not organized.
    std::int32_t Unorganized = 0;
    /// What is there and is passed over, and why: one line of UTF-8 for each.
    std::vector<std::string> PassedOver;
    /// All that is there could be looked at. Otherwise an environment may have been missed that shares its
    /// folder with another.
    bool Known = true;
    /// It could, and nothing that was passed over is an environment.
    bool Complete = true;
};

/// What a run of the organizer shows while it works. By itself it shows nothing.
class OrganizerProgress {
public:
    virtual ~OrganizerProgress() = default;
    /// Clears the bar.
    virtual void Clear() {}
    /// Shows the share that is done as a red bar. @param percent 0 to 99.
    virtual void ShowShare([[maybe_unused]] int percent) {}
    /// Shows a green bar of full length.
    virtual void ShowDone() {}
    /// Lets pending events of the window run.
    virtual void RunPendingEvents() {}
    /// Tells one thing that was done or could not be done, in one line of UTF-8.
    virtual void Tell([[maybe_unused]] const std::string& line) {}
};

/// Looks at the environment files below the simulator's folder and changes nothing.
/// @param sNoLimitsPath the simulator's folder.
EnvironmentScan ScanEnvironments(const FilePath& sNoLimitsPath);

/// Tidies the environments below the simulator's folder: each gets a subfolder with copies of its textures
/// and its .env file is made to name these, and what then lies loose and is no .env file is moved to
/// "__Unused Files__". A run that is cut off at any moment can be run again, and comes to the same end.
/// Nothing is written, moved or deleted through a link below the folder of the environments, and no link is
/// moved. A call in the middle of a run does nothing.
/// @return whether all went well; where something could not be read or written, or an environment was passed
/// over, loose files stay where they are, because an environment may still name them.
bool OrganizeEnvironments(const FilePath& sNoLimitsPath, OrganizerProgress& pbProgress);

/// @return the values of all texture settings in the text of an .env file, in its order. A last one without a
/// CR LF behind it does not count.
std::vector<DocumentPath> ParseTexturePaths(const text& sText);

} // namespace railwright
