#include "base/FileName.h"
#include "fuzz/Fuzz.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/CodePage.h"
#include "platform/WholeFile.h"
#include "tests/support/FailingFiles.h"

#include <set>

using namespace railwright;
using namespace railwright::fuzz;
using railwright::testing::FailingFiles;
using railwright::testing::SuddenEnd;

namespace {

const FilePath Simulator = FilePath::FromUser("Simulator");

/// Content of an environment's file and its textures.
struct Environment {
    text Settings;
    /// Every line is closed, no value contains an equals sign (which the organizer strips), and no file has
    /// the environment's name.
    bool IsPlain;
    /// Found textures in the order of the settings. Null for one that is missing, or that is an environment
    /// and thus changes.
    std::vector<std::optional<Bytes>> Textures;
    /// The settings without the parts that a run may change.
    text WhatStays;

    Environment(const MemoryFiles& files, const EnvironmentEntry& entry, NameLookup& lookup) {
        const Bytes* const file = files.Find(entry.FilePath);
        Require(file != nullptr, "no environment is lost");
        Settings.assign(file->begin(), file->end());
        IsPlain = Settings.ends_with("\r\n") && entry.Name.Native().find('=') == std::string::npos &&
                  files.Find(lookup.Find(entry.FilePath.Folder(), entry.Name)) == nullptr;
        text settings = Settings;
        std::replace(settings.begin(), settings.end(), '/', '\\');
        for (const DocumentPath& path : ParseTexturePaths(settings)) {
            const FilePath place = lookup.Find(Simulator, path);
            const Bytes* const texture = files.Find(place);
            const bool isKept = FileExists(place) && !HasExtension(place.Native(), ".env");
            Textures.push_back(isKept ? std::optional(*texture) : std::nullopt);
            IsPlain = IsPlain && settings.find(path.Text() + "\r\n") != text::npos;
        }
        const text folder =
            LowerCase(FromUtf8(entry.Name.Native(), SystemCodePage()), SystemCodePage()) + '\\';
        WhatStays = LowerCase(settings.substr(0, settings.find_last_not_of("\r\n") + 1), SystemCodePage());
        for (std::size_t at = 0; (at = WhatStays.find(folder, at)) != text::npos;)
            WhatStays.erase(at, folder.size());
    }
};

/// Checks the environments of a folder after a complete or interrupted run. Each must keep its text except
/// folders, and find its textures.
void RequireTextures(const MemoryFiles& files, const std::vector<EnvironmentEntry>& entries,
                     const std::vector<Environment>& environments) {
    NameLookup lookup;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Environment &old = environments[i], now(files, entries[i], lookup);
        Require(now.WhatStays == old.WhatStays, "an environment keeps its text but for folders");
        Require(!entries[i].Organized || now.Settings == old.Settings, "what is organized stays");
        for (std::size_t k = 0; k < old.Textures.size() && !entries[i].Organized && old.IsPlain; ++k)
            Require(!old.Textures[k] || now.Textures.at(k) == old.Textures[k], "textures are found");
    }
}

/// Checks that the content of each file still exists under any name, except for environments.
void RequireNothingLost(const MemoryFiles& files, const decltype(MemoryFiles::All)& before) {
    std::set<std::optional<Bytes>> contents = {std::nullopt};
    for (const auto& [path, content] : files.All)
        contents.insert(content);
    for (const auto& [path, content] : before) {
        const bool looksLikePath = path.Name().Native().find('\\') != std::string::npos;
        Require(!looksLikePath || files.All.at(path) == content, "a name is never taken for a path");
        Require(HasExtension(path.Native(), ".env") || contents.contains(content), "no texture is lost");
    }
}

} // namespace

/// The input is the simulator's folder: files separated by NULs, each with its path in the first line, then
/// its text. A texture's content begins with its path, so that no two are the same. Paths that leave the
/// folder are skipped. A bar in a name becomes a backslash. The last byte selects the call at which a run is
/// interrupted; a replay interrupts at each call.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryFiles files;
    for (const auto *at = data, *const end = data + size; at < end;) {
        const auto* const next = std::find(at, end, 0);
        const auto* const name = std::find(at, next, '\n');
        if (const DocumentPath path(text(at, name)); path.StaysBelow() && !path.Names().empty()) {
            FilePath place = path.In(Simulator);
            std::string last = place.Name().Native();
            std::replace(last.begin(), last.end(), '|', '\\');
            place = place.Folder() / FileName(last);
            if (CreateFolders(place.Folder()))
                WriteWholeFile(place, {HasExtension(last, ".env") ? std::min(name + 1, next) : at, next});
        }
        at = next + 1;
    }
    const auto before = files.All;
    const std::vector<EnvironmentEntry> entries = ScanEnvironments(Simulator).EnvironmentList;
    std::vector<Environment> environments;
    NameLookup lookup;
    for (const EnvironmentEntry& entry : entries)
        environments.emplace_back(files, entry, lookup);
    OrganizerProgress progress;
    const bool isDone = OrganizeEnvironments(Simulator, progress);
    const auto after = files.All;
    RequireNothingLost(files, before);
    RequireTextures(files, entries, environments);
    if (!isDone || after == before) // otherwise every run does the same
        return 0;
    const auto finish = [&] {
        for (int run = 0; run < 3; ++run)
            OrganizeEnvironments(Simulator, progress);
    };
    finish();
    const auto end = files.All;
    const bool isPlain = std::ranges::all_of(environments, &Environment::IsPlain);
    Require(!isPlain || end == after, "a second run changes nothing");

    // Interrupts a run at a call. Returns false if the run makes fewer calls.
    const auto interrupt = [&](int call, bool endsSuddenly) {
        files.All = before;
        bool hasCome = false;
        {
            FailingFiles failing;
            failing.FailAt = call;
            failing.Cause = std::errc::io_error;
            failing.EndsSuddenly = endsSuddenly;
            try {
                OrganizeEnvironments(Simulator, progress);
            } catch (const SuddenEnd&) { // finish() runs again
            }
            hasCome = failing.Calls >= call;
        }
        RequireNothingLost(files, before);
        RequireTextures(files, entries, environments);
        finish();
        RequireNothingLost(files, before);
        Require(files.All == end || !endsSuddenly, "a run that was cut off comes to the same end");
        return hasCome;
    };
#ifdef RAILWRIGHT_REPLAY
    for (const bool endsSuddenly : {false, true})
        for (int call = 1; interrupt(call, endsSuddenly); ++call) {
        }
#else
    interrupt(1 + data[size - 1], size % 2 == 0);
#endif
    return 0;
}
