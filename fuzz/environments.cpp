#include "fuzz/Fuzz.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/CodePage.h"

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

/// What is asked of an environment's file before and after a run.
struct Environment {
    text Settings;
    /// Those that it finds, in the order of its settings; an empty one for each that is missing.
    std::vector<Bytes> Textures;
    /// The settings without what a run may change in them.
    text WhatStays;

    Environment(const railwright::testing::MemoryFiles& files, const EnvironmentEntry& entry) {
        const Bytes* const file = files.Find(entry.FilePath);
        Require(file != nullptr, "no environment is lost");
        Settings.assign(file->begin(), file->end());
        text settings = Settings;
        std::replace(settings.begin(), settings.end(), '/', '\\');
        for (const text& path : ParseTexturePaths(settings)) {
            const Bytes* const texture = files.Find(Simulator + ToUtf8(path, SystemCodePage()));
            Textures.push_back(texture == nullptr ? Bytes{} : *texture);
        }
        const auto plain = [](const text& some) { return LowerCase(some, SystemCodePage()); };
        const text folder = plain(FromUtf8(entry.Name, SystemCodePage())) + '\\';
        WhatStays = plain(settings.substr(0, settings.find_last_not_of("\r\n") + 1));
        for (std::size_t at = 0; (at = WhatStays.find(folder, at)) != text::npos;)
            WhatStays.erase(at, folder.size());
    }
};

} // namespace

/// The input is the simulator's folder: files with a NUL between them, each a path in its first line and its
/// text. A texture begins with its own path, so that no two are the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    railwright::testing::MemoryFiles files;
    for (const auto *at = data, *const end = data + size; at < end;) {
        const auto* const next = std::find(at, end, 0);
        const auto* const name = std::find(at, next, '\n');
        const std::string path(at, name);
        const auto* const content = HasExtension(path, ".env") ? std::min(name + 1, next) : at;
        if (path.find_first_of(":/") == std::string::npos && path.find("..") == std::string::npos)
            files.Put(Simulator + path, {content, next});
        at = next + 1;
    }
    const auto before = files.Contents();
    const std::vector<EnvironmentEntry> entries = ScanEnvironments(Simulator).EnvironmentList;
    std::vector<Environment> environments;
    for (const EnvironmentEntry& entry : entries)
        environments.emplace_back(files, entry);
    Quiet progress;
    bool isDone = OrganizeEnvironments(Simulator, progress);

    const auto after = files.Contents();
    std::set<Bytes> contents;
    for (const auto& [path, content] : after)
        contents.insert(content);
    for (const auto& [path, content] : before)
        Require(HasExtension(path, ".env") || contents.contains(content), "no texture is lost");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Environment& old = environments[i];
        const Environment now(files, entries[i]);
        Require(now.WhatStays == old.WhatStays, "an environment keeps its text but for folders");
        Require(!entries[i].Organized || now.Settings == old.Settings, "what is organized stays as it is");
        for (std::size_t k = 0; k < old.Textures.size() && !entries[i].Organized; ++k)
            Require(old.Textures[k].empty() || now.Textures.at(k) == old.Textures[k], "a texture is found");
        isDone = isDone && old.Settings.ends_with("\r\n"); // an open line only counts once it has been closed
    }
    if (isDone) {
        OrganizeEnvironments(Simulator, progress);
        Require(files.Contents() == after, "a second run changes nothing");
    }
    return 0;
}
