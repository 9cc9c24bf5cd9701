#include "install/mTool_EnvironmentCleaner.h"

#include "base/FileName.h"
#include "install/mINI.h"
#include "install/modFileIO.h"
#include "platform/CodePage.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace railwright {
namespace {

constexpr std::string_view EnvironmentExtension = ".env";
constexpr const char* TextureKey = ".texture.path";
constexpr std::string_view EndOfLine = "\r\n";
constexpr const char* EnvironmentsFolder = "Environments\\";
constexpr const char* UnusedFolder = "__Unused Files__";
/// A folder takes this name until it is an environment's, and holds this file until the environment is
/// finished. No texture can have that name, because no setting holds an equals sign.
constexpr const char* StagingFolder = "~railwright";
constexpr const char* UnfinishedMark = "\\~unfinished=";

std::size_t FindIgnoringCase(const text& in, const text& piece, std::size_t from) {
    return LowerCase(in, SystemCodePage()).find(LowerCase(piece, SystemCodePage()), from);
}

text ReplacedIgnoringCase(const text& in, const text& piece, const text& by) {
    text replaced;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = FindIgnoringCase(in, piece, from)) != text::npos; from = at + piece.size())
        replaced += in.substr(from, at - from) + by;
    return replaced + in.substr(from);
}

/// Replaces each of some pieces, wherever it stands, by what belongs to it. Where several begin, the longest
/// is taken, and nothing is replaced twice.
text ReplacedAtOnce(const text& in, const std::map<text, text>& pieces) {
    text replaced;
    for (std::size_t at = 0; at < in.size();) {
        std::pair<text, text> longest;
        for (const auto& piece : pieces)
            if (piece.first.size() > longest.first.size() &&
                in.compare(at, piece.first.size(), piece.first) == 0)
                longest = piece;
        replaced += longest.first.empty() ? text(1, in[at]) : longest.second;
        at += std::max<std::size_t>(longest.first.size(), 1);
    }
    return replaced;
}

/// Whether a path below the simulator's folder could lead to somewhere else: up, or to another drive.
bool MayLeaveFolder(const text& path) {
    if (path.find(':') != text::npos)
        return true;
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        if (path.compare(start, end - start, "..") == 0)
            return true;
        start = end + 1;
    }
    return false;
}

bool Exists(const std::string& path) {
    return Files().Status(path).What != FileStatus::Kind::Missing;
}

std::vector<std::string> NormalFilesIn(const std::string& folder, std::error_code& error) {
    std::vector<std::string> names = Files().List(folder, error);
    std::erase_if(names, [&](const std::string& name) { return !FileExists(folder + name); });
    return names;
}

std::string SimulatorFolder(const std::string& sNoLimitsPath) {
    return sNoLimitsPath.ends_with('\\') ? sNoLimitsPath : sNoLimitsPath + '\\';
}

bool IsOrganized(const std::string& sEnvFolder, const std::string& name) {
    if (Exists(sEnvFolder + name))
        return !Exists(sEnvFolder + name + UnfinishedMark);
    text settings;
    return ReadTextFile(sEnvFolder + name + std::string(EnvironmentExtension), settings) &&
           FindIgnoringCase(settings, TextureKey, 0) == text::npos;
}

/// One run of the organizer.
class Run {
public:
    Run(const std::string& sNoLimitsPath, OrganizerProgress& progress)
        : sNLFolder(SimulatorFolder(sNoLimitsPath)),
          sEnvFolder(sNLFolder + EnvironmentsFolder),
          bar(progress) {}

    /// Gives one environment its subfolder. A texture is there before the .env file speaks of it, and the
    /// folder counts as unfinished until that file has been replaced.
    void Organize(const EnvironmentEntry& entry) {
        text settings;
        if (!Succeeded(ReadTextFile(entry.FilePath, settings), entry.FilePath))
            return;
        if (FindIgnoringCase(settings, TextureKey, 0) == text::npos)
            return; // it could not be read when it was looked at
        if (ToUtf8(FromUtf8(entry.Name, SystemCodePage()), SystemCodePage()) != entry.Name) {
            allWell = false; // it goes on naming loose files
            return bar.Tell(entry.Name + ": no setting can hold this name, it is passed over");
        }
        const text before = settings;
        std::replace(settings.begin(), settings.end(), '/', '\\');
        if (!RelocateTextures(settings, entry.Name))
            return;
        if (settings != before && !Succeeded(WriteTextFile(entry.FilePath, settings), entry.FilePath))
            return;
        FinishFolder(entry.Name);
        bar.Tell(entry.Name +
                 (Exists(sEnvFolder + entry.Name) ? ": organized" : ": none of its textures is there"));
    }

    void MoveUnusedFiles() {
        const std::string target = sEnvFolder + UnusedFolder;
        std::error_code error;
        if (!Exists(target))
            Files().CreateFolder(target, error);
        for (const std::string& name : NormalFilesIn(sEnvFolder, error)) {
            if (HasExtension(name, EnvironmentExtension))
                continue;
            std::error_code taken;
            Files().Move(sEnvFolder + name, target + '\\' + name, taken);
            bar.Tell(taken ? name + ": stays where it is, " + taken.message()
                           : name + ": moved to " + UnusedFolder);
        }
    }

    bool AllWell() const { return allWell; }

private:
    /// Copies the textures that `settings` names and makes it name the copies. @return whether all were
    /// written.
    bool RelocateTextures(text& settings, const std::string& name) {
        const text newFolder = EnvironmentsFolder + FromUtf8(name, SystemCodePage()) + '\\';
        std::map<text, text> newPaths;
        for (const text& path : ParseTexturePaths(settings)) {
            const std::string shown = name + ": " + ToUtf8(path, SystemCodePage());
            newPaths[path] = path;
            if (MayLeaveFolder(path)) {
                bar.Tell(shown + " leads out of the simulator's folder and is left alone");
                continue;
            }
            const bool isThere = FindIgnoringCase(path, newFolder, 0) != text::npos;
            const text newPath = isThere ? path : ReplacedIgnoringCase(path, EnvironmentsFolder, newFolder);
            if (!CopyTexture(ToUtf8(path, SystemCodePage()), ToUtf8(newPath, SystemCodePage()), name, shown))
                return false;
            newPaths[path] = newPath;
        }
        settings = ReplacedAtOnce(settings, newPaths);
        return true;
    }

    bool CopyTexture(const std::string& from, const std::string& to, const std::string& name,
                     const std::string& shown) {
        FileBuffer texture;
        if (!FileExists(sNLFolder + from)) {
            bar.Tell(shown + " is missing");
            return true;
        }
        const std::string target = sNLFolder + to;
        if (!Succeeded(ReadFileBuffer(sNLFolder + from, texture), sNLFolder + from) ||
            !Succeeded(BeginFolder(name), sEnvFolder + name))
            return false;
        if (from == to)
            return true;
        if (!Succeeded(CreateFolders(FolderOf(target)), FolderOf(target)) ||
            !Succeeded(WriteFileBuffer(target, texture), target))
            return false;
        bar.Tell(shown + " copied");
        return true;
    }

    /// Makes the environment's subfolder. It appears under its name with the mark of an unfinished one in it.
    FileResult BeginFolder(const std::string& name) {
        if (Exists(sEnvFolder + name))
            return {};
        const std::string staging = sEnvFolder + StagingFolder;
        if (!IsBare(staging))
            return FileResult::Failure("cannot be created while " + std::string(StagingFolder) +
                                       " holds something");
        if (FileResult made = CreateFolders(staging); !made)
            return made;
        if (FileResult marked = WriteFileBuffer(staging + UnfinishedMark, {}); !marked)
            return marked;
        std::error_code error;
        Files().Move(staging, sEnvFolder + name, error);
        return error ? FileResult::Failure("cannot be created: " + error.message()) : FileResult{};
    }

    /// Whether there is no such folder, or only what a run that was cut off has left in it: empty files.
    static bool IsBare(const std::string& staging) {
        std::error_code error;
        const std::vector<std::string> names = Files().List(staging, error);
        return !Exists(staging) || (!error && std::all_of(names.begin(), names.end(), [&](const auto& name) {
            const FileStatus status = Files().Status(staging + '\\' + name);
            return status.What == FileStatus::Kind::File && status.Length == 0;
        }));
    }

    void FinishFolder(const std::string& name) {
        std::error_code error;
        const std::string mark = sEnvFolder + name + UnfinishedMark;
        if (Exists(mark))
            Files().Delete(mark, error);
        if (error)
            Succeeded(FileResult::Failure("cannot be deleted: " + error.message()), mark);
    }

    bool Succeeded(const FileResult& result, const std::string& path) {
        if (!result) {
            allWell = false;
            bar.Tell(path + ": " + result.Reason);
        }
        return result.Done;
    }

    std::string sNLFolder;
    std::string sEnvFolder;
    OrganizerProgress& bar;
    bool allWell = true;
};

} // namespace

EnvironmentScan ScanEnvironments(const std::string& sNoLimitsPath) {
    const std::string sEnvFolder = SimulatorFolder(sNoLimitsPath) + EnvironmentsFolder;
    EnvironmentScan scan;
    std::error_code error;
    const std::vector<std::string> files = NormalFilesIn(sEnvFolder, error);
    scan.Complete = !error || !Exists(sEnvFolder);
    for (const std::string& file : files) {
        if (!HasExtension(file, EnvironmentExtension))
            continue;
        const std::string name = WithoutEvery(file, EnvironmentExtension);
        scan.EnvironmentList.push_back({sEnvFolder + file, name, IsOrganized(sEnvFolder, name)});
        scan.Unorganized += scan.EnvironmentList.back().Organized ? 0 : 1;
    }
    return scan;
}

bool OrganizeEnvironments(const std::string& sNoLimitsPath, OrganizerProgress& pbProgress) {
    static bool isRunning = false; // the window lets events through between two environments
    if (isRunning)
        return true;
    struct Running {
        Running() { isRunning = true; }
        ~Running() { isRunning = false; }
    } const running;
    pbProgress.Clear();
    Run run(sNoLimitsPath, pbProgress);
    const EnvironmentScan scan = ScanEnvironments(sNoLimitsPath);
    const std::size_t count = scan.EnvironmentList.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (!scan.EnvironmentList[i].Organized)
            run.Organize(scan.EnvironmentList[i]);
        pbProgress.ShowShare(static_cast<int>(i * 100 / count));
        pbProgress.RunPendingEvents();
    }
    // What an environment still names may lie loose where something could not be read or written.
    const bool allWell = scan.Complete && run.AllWell();
    if (allWell)
        run.MoveUnusedFiles();
    else
        pbProgress.Tell("No file is moved, because something could not be read or written");
    pbProgress.ShowDone();
    return allWell;
}

std::vector<text> ParseTexturePaths(const text& sText) {
    std::vector<text> paths;
    const text lower = LowerCase(sText, SystemCodePage());
    for (std::size_t key = 0; (key = lower.find(TextureKey, key)) != text::npos;) {
        const std::size_t start = key + std::string_view(TextureKey).size() + 1;
        const std::size_t end = sText.find(EndOfLine, start);
        if (end == text::npos)
            break;
        if (end > start) {
            text path = sText.substr(start, end - start);
            std::erase(path, '=');
            path.erase(0, std::min(path.find_first_not_of(' '), path.size()));
            path.erase(path.find_last_not_of(' ') + 1);
            paths.push_back(path);
        }
        key = end;
    }
    return paths;
}

} // namespace railwright
