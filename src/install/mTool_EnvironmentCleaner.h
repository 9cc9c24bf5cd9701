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
    /// The environment has a subfolder (or another entry of its name) or no textures, and no interrupted run
    /// left it unfinished.
    bool Organized = false;
};

/// The environments in the simulator's folder.
struct EnvironmentScan {
    /// All environment files, sorted by name.
    std::vector<EnvironmentEntry> EnvironmentList;
    /// The number of environments that are not organized.
    std::int32_t Unorganized = 0;
    /// One line of UTF-8 per skipped file, with the reason.
    std::vector<std::string> PassedOver;
    /// Everything could be checked. If false, environments may be missing from the list, even ones that share
    /// a folder with a listed one.
    bool Known = true;
    /// Known is true, and no skipped file is an environment.
    bool Complete = true;
};

/// Displays the progress of a run. The base class displays nothing.
class OrganizerProgress {
public:
    virtual ~OrganizerProgress() = default;
    /// Clears the bar.
    virtual void Clear() {}
    /// Shows a red bar. @param percent the share that is done, 0 to 99.
    virtual void ShowShare([[maybe_unused]] int percent) {}
    /// Shows a full green bar.
    virtual void ShowDone() {}
    /// Processes pending events of the window.
    virtual void RunPendingEvents() {}
    /// Reports one action or error as one line of UTF-8.
    virtual void Tell([[maybe_unused]] const std::string& line) {}
};

/// Lists the environments in the simulator's folder. Changes nothing.
EnvironmentScan ScanEnvironments(const FilePath& sNoLimitsPath);

/// Organizes the environments in the simulator's folder. Each environment gets a subfolder with copies of its
/// textures, and its .env file then names these copies. Afterwards, the loose files that are not .env files
/// are moved to "__Unused Files__".
///
/// An interrupted run can be repeated with the same final result. Nothing is written, moved or deleted
/// through a link in the environments folder, and no link is moved. A call during a run does nothing and
/// returns true.
/// @return whether everything succeeded. If something could not be read or written, or an environment was
/// skipped, no loose file is moved, because an environment may still name it.
bool OrganizeEnvironments(const FilePath& sNoLimitsPath, OrganizerProgress& pbProgress);

/// Returns the values of all texture settings in the text of an .env file, in order. Ignores a last line
/// without CR LF.
std::vector<DocumentPath> ParseTexturePaths(const text& sText);

} // namespace railwright
