#include "fuzz/HeapWatch.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "tests/support/MemoryFiles.h"

#include <set>

namespace railwright::fuzz {
namespace {

using testing::MemoryFiles;
using Bytes = MemoryFiles::Bytes;

const std::string Simulator = "C:\\Simulator\\";

class Quiet final : public OrganizerProgress {
public:
    void Clear() override {}
    void ShowShare(int) override {}
    void ShowDone() override {}
    void RunPendingEvents() override {}
    void Tell(const std::string&) override {}
};

text TextOf(const MemoryFiles& files, const std::string& path) {
    const auto* const bytes = files.Find(path);
    Require(bytes != nullptr, "no .env is lost");
    return {bytes->begin(), bytes->end()};
}

/// All files, by their paths in lower case.
std::map<std::string, Bytes> FilesOf(const MemoryFiles& files) {
    std::map<std::string, Bytes> all;
    for (const auto& [key, entry] : files.Entries())
        if (entry.Content)
            all[key] = *entry.Content;
    return all;
}

/// @return the textures that an environment finds, in the order of its settings; empty for a missing one.
std::vector<Bytes> TexturesOf(const MemoryFiles& files, text settings) {
    std::replace(settings.begin(), settings.end(), '/', '\\');
    std::vector<Bytes> textures;
    for (const text& path : ParseTexturePaths(settings)) {
        const Bytes* const found = files.Find(Simulator + ToUtf8(path, SystemCodePage()));
        textures.push_back(found == nullptr ? Bytes{} : *found);
    }
    return textures;
}

/// @return an environment's text without what the organizer may change in it.
text WhatStays(text settings, const text& name) {
    while (settings.ends_with("\r\n"))
        settings.resize(settings.size() - 2);
    std::replace(settings.begin(), settings.end(), '/', '\\');
    text lower = LowerCase(settings, SystemCodePage());
    const text folder = LowerCase(name, SystemCodePage()) + '\\';
    for (std::size_t at = 0; (at = lower.find(folder, at)) != text::npos;)
        lower.erase(at, folder.size());
    return lower;
}

} // namespace
} // namespace railwright::fuzz

using namespace railwright;
using namespace railwright::fuzz;

/// The input is the simulator's folder: files with a NUL between them, each a path in its first line and its
/// text. A texture holds its own name, so that no two are the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryFiles files;
    for (const auto *at = data, *const end = data + size; at < end;) {
        const auto* const next = std::find(at, end, 0);
        const auto* const name = std::find(at, next, '\n');
        const std::string path(at, name);
        const bool isEnvironment = HasExtension(path, ".env");
        if (path.find_first_of(":/") == std::string::npos && ("\\" + path).find("\\..") == std::string::npos)
            files.Put(Simulator + path, {isEnvironment ? std::min(name + 1, next) : at, next});
        at = next + 1;
    }
    const auto before = FilesOf(files);
    const EnvironmentScan scan = ScanEnvironments(Simulator);
    std::map<std::string, std::pair<text, std::vector<Bytes>>> environments;
    for (const EnvironmentEntry& entry : scan.EnvironmentList) {
        const text settings = TextOf(files, entry.FilePath);
        environments[entry.FilePath] = {settings, TexturesOf(files, settings)};
    }
    Quiet progress;
    const bool allWell = OrganizeEnvironments(Simulator, progress);
    const auto after = FilesOf(files);

    std::set<Bytes> contents;
    for (const auto& [path, content] : after)
        contents.insert(content);
    for (const auto& [path, content] : before)
        Require(path.ends_with(".env") || contents.contains(content), "no texture is lost");
    bool isClosed = true;
    for (const EnvironmentEntry& entry : scan.EnvironmentList) {
        const auto& [settings, textures] = environments[entry.FilePath];
        const text now = TextOf(files, entry.FilePath);
        const text name = FromUtf8(entry.Name, SystemCodePage());
        Require(WhatStays(now, name) == WhatStays(settings, name), "an environment keeps its text");
        Require(!entry.Organized || now == settings, "an organized environment stays as it is");
        const std::vector<Bytes> found = TexturesOf(files, now);
        for (std::size_t i = 0; i < textures.size() && !entry.Organized; ++i)
            Require(textures[i].empty() || found.at(i) == textures[i], "an environment finds its textures");
        isClosed = isClosed && settings.ends_with("\r\n");
    }
    if (allWell && isClosed) {
        OrganizeEnvironments(Simulator, progress);
        Require(FilesOf(files) == after, "a second run changes nothing");
    }
    return 0;
}
