#include "fuzz/Fuzz.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/CodePage.h"
#include "platform/WholeFile.h"

#include <set>

using namespace railwright;
using namespace railwright::fuzz;

namespace {

const std::string Simulator = "C:\\Simulator\\";

struct Quiet final : OrganizerProgress {
    void Clear() override {}
    void ShowShare(int) override {}
    void ShowDone() override {}
    void RunPendingEvents() override {}
    void Tell(const std::string&) override {}
};

/// What an environment's file tells before and after a run.
struct Environment {
    text Settings;
    /// Every line is closed, neither a value nor the name has an equals sign, which the organizer takes out
    /// when it looks, and no file has the environment's name.
    bool IsPlain;
    /// What it finds, in the order of its settings; null for what is missing, or changes as an environment
    /// does.
    std::vector<std::optional<Bytes>> Textures;
    /// The settings without what a run may change in them.
    text WhatStays;

    Environment(const MemoryFiles& files, const EnvironmentEntry& entry) {
        const Bytes* const file = files.Find(entry.FilePath);
        Require(file != nullptr, "no environment is lost");
        Settings.assign(file->begin(), file->end());
        IsPlain = Settings.ends_with("\r\n") && entry.Name.find('=') == std::string::npos &&
                  files.Find(FolderOf(entry.FilePath) + entry.Name) == nullptr;
        text settings = Settings;
        std::replace(settings.begin(), settings.end(), '/', '\\');
        for (const text& path : ParseTexturePaths(settings)) {
            const Bytes* const texture = files.Find(Simulator + ToUtf8(path, SystemCodePage()));
            const bool isKept = texture != nullptr && !HasExtension(ToUtf8(path, SystemCodePage()), ".env");
            Textures.push_back(isKept ? std::optional(*texture) : std::nullopt);
            IsPlain = IsPlain && settings.find(path + "\r\n") != text::npos;
        }
        const text folder = LowerCase(FromUtf8(entry.Name, SystemCodePage()), SystemCodePage()) + '\\';
        WhatStays = LowerCase(settings.substr(0, settings.find_last_not_of("\r\n") + 1), SystemCodePage());
        for (std::size_t at = 0; (at = WhatStays.find(folder, at)) != text::npos;)
            WhatStays.erase(at, folder.size());
    }
};

} // namespace

/// The input is the simulator's folder: files with a NUL between them, each a path in its first line and its
/// text. A texture begins with its own path, so that no two are the same. What leads elsewhere is left out.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFiles files;
    for (const auto *at = data, *const end = data + size; at < end;) {
        const auto* const next = std::find(at, end, 0);
        const auto* const name = std::find(at, next, '\n');
        const std::string path = Simulator + std::string(at, name);
        if (path.find_first_of(":/", 2) == std::string::npos && path.find("..") == std::string::npos &&
            CreateFolders(FolderOf(path)))
            WriteWholeFile(path, {HasExtension(path, ".env") ? std::min(name + 1, next) : at, next});
        at = next + 1;
    }
    const auto before = files.All;
    const std::vector<EnvironmentEntry> entries = ScanEnvironments(Simulator).EnvironmentList;
    std::vector<Environment> environments;
    for (const EnvironmentEntry& entry : entries)
        environments.emplace_back(files, entry);
    Quiet progress;
    bool isDone = OrganizeEnvironments(Simulator, progress);

    const auto after = files.All;
    std::set<std::optional<Bytes>> contents = {std::nullopt};
    for (const auto& [path, content] : after)
        contents.insert(content);
    for (const auto& [path, content] : before)
        Require(HasExtension(path, ".env") || contents.contains(content), "no texture is lost");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Environment &old = environments[i], now(files, entries[i]);
        Require(now.WhatStays == old.WhatStays, "an environment keeps its text but for folders");
        Require(!entries[i].Organized || now.Settings == old.Settings, "what is organized stays");
        for (std::size_t k = 0; k < old.Textures.size() && !entries[i].Organized && old.IsPlain; ++k)
            Require(!old.Textures[k] || now.Textures.at(k) == old.Textures[k], "textures are found");
        isDone = isDone && old.IsPlain;
    }
    if (isDone) {
        OrganizeEnvironments(Simulator, progress);
        Require(files.All == after, "a second run changes nothing");
    }
    return 0;
}
