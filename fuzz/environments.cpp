#include "base/FileName.h"
#include "fuzz/Fuzz.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/CodePage.h"
#include "platform/WholeFile.h"

#include <set>

using namespace railwright;
using namespace railwright::fuzz;

namespace {

const FilePath Simulator = FilePath::FromUser("Simulator");

/// What an environment's file tells before and after a run.
struct Environment {
    text Settings;
    /// Every line is closed, no value has an equals sign, which the organizer takes out when it looks, and no
    /// file has the environment's name.
    bool IsPlain;
    /// What it finds, in the order of its settings; null for what is missing, or changes as an environment
    /// does.
    std::vector<std::optional<Bytes>> Textures;
    /// The settings without what a run may change in them.
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

/// Thrown where the process is to end suddenly.
struct SuddenEnd {};

/// Ends the process before one of the steps that a run makes in sight of others: a name taken or given up.
struct EndingFiles final : MemoryFiles {
    /// The steps that are left; below 0 it never comes.
    int Left = -1;

    void BeforeStep() override {
        if (Left-- == 0)
            throw SuddenEnd();
    }
};

} // namespace

/// The input is the simulator's folder: files with a NUL between them, each a path in its first line and its
/// text. A texture begins with its own path, so that no two are the same. What leads elsewhere is left out,
/// and a bar in a name stands for a backslash. The last byte tells when a run is cut off.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    EndingFiles files;
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
    NameLookup lookup, lookupAfter;
    for (const EnvironmentEntry& entry : entries)
        environments.emplace_back(files, entry, lookup);
    OrganizerProgress progress;
    bool isDone = OrganizeEnvironments(Simulator, progress);

    const auto after = files.All;
    std::set<std::optional<Bytes>> contents = {std::nullopt};
    for (const auto& [path, content] : after)
        contents.insert(content);
    for (const auto& [path, content] : before) {
        const bool looksLikePath = path.Name().Native().find('\\') != std::string::npos;
        Require(!looksLikePath || after.at(path) == content, "a name is never taken for a path");
        Require(HasExtension(path.Native(), ".env") || contents.contains(content), "no texture is lost");
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Environment &old = environments[i], now(files, entries[i], lookupAfter);
        Require(now.WhatStays == old.WhatStays, "an environment keeps its text but for folders");
        Require(!entries[i].Organized || now.Settings == old.Settings, "what is organized stays");
        for (std::size_t k = 0; k < old.Textures.size() && !entries[i].Organized && old.IsPlain; ++k)
            Require(!old.Textures[k] || now.Textures.at(k) == old.Textures[k], "textures are found");
        isDone = isDone && old.IsPlain;
    }
    if (isDone && after != before) { // otherwise each run is the first one over again
        OrganizeEnvironments(Simulator, progress);
        Require(files.All == after, "a second run changes nothing");
        files.All = before;
        try {
            files.Left = data[size - 1] % 32;
            OrganizeEnvironments(Simulator, progress);
        } catch (const SuddenEnd&) { // it is run again
        }
        files.Left = -1;
        OrganizeEnvironments(Simulator, progress);
        Require(files.All == after, "a run that was cut off comes to the same end");
    }
    return 0;
}
