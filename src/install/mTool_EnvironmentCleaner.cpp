#include "install/mTool_EnvironmentCleaner.h"

#include "base/FileName.h"
#include "base/Text.h"
#include "install/TextReplacement.h"
#include "install/UnfinishedList.h"
#include "install/mINI.h"
#include "install/modFileIO.h"
#include "platform/CodePage.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace railwright {
namespace {

constexpr std::string_view EnvironmentExtension = ".env";
constexpr const char* TextureKey = ".texture.path";
constexpr TextView EndOfLine = "\r\n";
constexpr const char* Environments = "Environments";
constexpr const char* EnvironmentsFolder = "Environments\\";
constexpr const char* UnusedFolder = "__Unused Files__";
/// The file that lists the unfinished environments during a run. No texture can have this name, because no
/// setting can contain an equals sign.
constexpr const char* UnfinishedList = "~unfinished=";

/// A file in the environments folder itself.
struct LooseFile {
    FileName Name;
    bool IsLink;

    /// A setting would interpret the name as a path.
    bool LooksLikePath() const { return Name.Native().find('\\') != std::string::npos; }
    /// Returns why the file is skipped; empty if it is not.
    std::string PassedOver() const {
        return LooksLikePath() ? "it has a backslash in its name" : IsLink ? "it is a link" : "";
    }
};

/// Returns the files in a folder that are not hidden, including links to files and dangling links. Also
/// includes hidden files whose name looks like a path.
std::vector<LooseFile> FilesIn(const FilePath& folder, std::error_code& error) {
    std::vector<LooseFile> files;
    for (const FileName& name : Files().List(folder, error)) {
        const FileStatus status = Files().Status(folder / name);
        error = status.Error ? status.Error : error;
        const bool leadsNowhere = status.IsLink && status.What == FileStatus::Kind::Missing;
        const LooseFile file = {name, status.IsLink};
        if ((status.What == FileStatus::Kind::File || leadsNowhere) &&
            (!status.Hidden || file.LooksLikePath()))
            files.push_back(file);
    }
    return files;
}

/// The folders of an installation.
struct Installation {
    explicit Installation(FilePath sNoLimitsPath)
        : sNLFolder(std::move(sNoLimitsPath)),
          sEnvFolder(Names.Find(sNLFolder, FileName(Environments))),
          Unfinished(Names.Find(sEnvFolder, FileName(UnfinishedList))) {}

    FilePath FolderOf(const EnvironmentEntry& entry) { return Names.Find(sEnvFolder, entry.Name); }

    NameLookup Names;
    FilePath sNLFolder;
    FilePath sEnvFolder;
    /// The list of unfinished environments.
    FilePath Unfinished;
};

/// Returns whether the file is readable and names no texture.
bool HasNoTexture(const FilePath& file) {
    text settings;
    return ReadTextFile(file, settings) && FindIgnoringCase(settings, TextureKey, 0) == text::npos;
}

/// Returns the .env file that decides whether an environment without a folder has textures. It belongs to
/// another environment if the name contains ".env" more than once.
FilePath DecidingFile(Installation& place, const EnvironmentEntry& entry) {
    return place.Names.Find(place.sEnvFolder,
                            FileName(entry.Name.Native() + std::string(EnvironmentExtension)));
}

bool HasFolder(Installation& place, const EnvironmentEntry& entry, std::error_code& unknown) {
    const FilePath folder = place.FolderOf(entry);
    return folder != place.Unfinished && Exists(folder, unknown);
}

/// Returns whether every texture setting is on a line that ends in CR LF.
bool HasWholeLines(const text& settings) {
    const text lower = LowerCase(settings, SystemCodePage());
    for (std::size_t key = 0; (key = lower.find(TextureKey, key)) != text::npos;) {
        key = lower.find_first_of(EndOfLine, key);
        if (key == text::npos || TextView(lower).substr(key, 2) != EndOfLine)
            return false;
    }
    return true;
}

EnvironmentScan Scan(Installation& place) {
    EnvironmentScan scan;
    std::error_code error;
    const std::vector<LooseFile> files = FilesIn(place.sEnvFolder, error);
    std::error_code unknown;
    if (Exists(place.sEnvFolder, unknown) && error)
        unknown = error;
    std::set<FileName> unfinished;
    if (const FileResult read = ReadList(place.Unfinished, unfinished); !read) {
        scan.Complete = false;
        scan.PassedOver.push_back(place.Unfinished.Shown() + ": " + read.Reason);
    }
    for (const LooseFile& file : files) {
        if (!HasExtension(file.Name.Native(), EnvironmentExtension))
            continue;
        if (const std::string why = file.PassedOver(); !why.empty()) {
            // A link may be an environment, because the simulator follows it. A name with a backslash is
            // not, because the simulator's files cannot contain one.
            scan.Complete = scan.Complete && file.LooksLikePath();
            scan.PassedOver.push_back(file.Name.Shown() + ": is skipped, " + why);
            continue;
        }
        EnvironmentEntry entry{place.sEnvFolder / file.Name,
                               FileName(WithoutEvery(file.Name.Native(), EnvironmentExtension))};
        if (!unfinished.contains(file.Name)) {
            const bool hasFolder = HasFolder(place, entry, unknown);
            const FilePath deciding = DecidingFile(place, entry);
            entry.Organized = hasFolder || HasNoTexture(deciding);
            if (entry.Organized && !hasFolder && deciding != entry.FilePath &&
                !HasNoTexture(entry.FilePath)) {
                scan.Complete = false; // its textures may be loose files
                scan.PassedOver.push_back(file.Name.Shown() + ": is skipped, because " +
                                          deciding.Name().Shown() + " counts as the same environment");
            }
        }
        scan.Unorganized += entry.Organized ? 0 : 1;
        scan.EnvironmentList.push_back(std::move(entry));
    }
    scan.Known = !unknown;
    scan.Complete = scan.Complete && scan.Known;
    if (!scan.Known)
        scan.PassedOver.push_back(place.sEnvFolder.Shown() + ": cannot be checked: " + unknown.message());
    return scan;
}

/// One run of the organizer.
class Run {
public:
    Run(const FilePath& sNoLimitsPath, OrganizerProgress& progress)
        : place(sNoLimitsPath), scan(Scan(place)), bar(progress), allWell(scan.Complete) {
        for (const std::string& line : scan.PassedOver)
            bar.Tell(line);
    }

    const std::vector<EnvironmentEntry>& List() const { return scan.EnvironmentList; }

    /// Writes the list of environments to organize. Environments of the same name share a folder, so the
    /// folder does not prove that all of them are finished.
    void Begin() {
        if (!scan.Known)
            return;
        for (const EnvironmentEntry& entry : List())
            if (!entry.Organized && CanBeNamed(entry))
                unfinished.insert(entry.FilePath.Name());
        if (!Succeeded(ReadList(place.Unfinished, listed), place.Unfinished) || !WriteDown())
            unfinished.clear();
    }

    /// Organizes one environment. Copies the textures before the .env file names them.
    void Organize(const EnvironmentEntry& entry) {
        text settings;
        if (!unfinished.contains(entry.FilePath.Name()) ||
            !Succeeded(ReadTextFile(entry.FilePath, settings), entry.FilePath))
            return;
        if (!HasWholeLines(settings)) {
            Succeeded(FileResult::Failure("the line of a texture does not end in CR LF"), entry.FilePath);
            return;
        }
        if (FindIgnoringCase(settings, TextureKey, 0) != text::npos) { // false if another .env file decided
            const text before = settings;
            std::replace(settings.begin(), settings.end(), '/', '\\');
            if (!RelocateTextures(settings, entry))
                return;
            if (settings != before && !Succeeded(WriteTextFile(entry.FilePath, settings), entry.FilePath))
                return;
            std::error_code ignored;
            bar.Tell(entry.Name.Shown() + (Exists(place.FolderOf(entry), ignored)
                                               ? ": organized"
                                               : ": none of its textures is there"));
        }
        unfinished.erase(entry.FilePath.Name());
    }

    /// Finishes the run. Returns whether everything succeeded.
    bool End() {
        if (isBegun)
            WriteDown();
        if (allWell)
            MoveUnusedFiles();
        else // a remaining environment may name loose files
            bar.Tell("No file is moved, because something could not be read or written, or was skipped");
        return allWell;
    }

private:
    /// Returns whether a setting can hold the environment's name. If not, the environment keeps naming loose
    /// files.
    bool CanBeNamed(const EnvironmentEntry& entry) {
        const std::string& name = entry.Name.Native();
        const DocumentPath inside(FolderText(entry) + "texture");
        const auto readBack = ParseTexturePaths(text(TextureKey) + '=' + inside.Text() + text(EndOfLine));
        const bool canBe = ToUtf8(FromUtf8(name, SystemCodePage()), SystemCodePage()) == name &&
                           entry.Name.Shown() == name && readBack == std::vector{inside} &&
                           inside.StaysBelow() && place.FolderOf(entry) != place.Unfinished;
        allWell = allWell && canBe;
        if (!canBe)
            bar.Tell(entry.Name.Shown() + ": no setting can hold this name, it is skipped");
        return canBe;
    }

    /// Deletes leftovers of interrupted runs from a folder, once per run.
    void ClearOnce(const FilePath& folder) {
        if (cleared.insert(folder).second)
            Files().DeleteLeftovers(folder);
    }

    /// Updates the list on the disk.
    bool WriteDown() {
        ClearOnce(place.sEnvFolder);
        isBegun =
            listed == unfinished || Succeeded(WriteList(place.Unfinished, unfinished), place.Unfinished);
        if (isBegun)
            listed = unfinished;
        return isBegun;
    }

    /// Returns the environment's subfolder in the form of a setting.
    static text FolderText(const EnvironmentEntry& entry) {
        return EnvironmentsFolder + FromUtf8(entry.Name.Native(), SystemCodePage()) + '\\';
    }

    /// Copies the textures that `settings` names, and changes the settings to name the copies.
    /// @return whether all copies were written.
    bool RelocateTextures(text& settings, const EnvironmentEntry& entry) {
        const text newFolder = FolderText(entry);
        Pieces newPaths;
        for (const DocumentPath& path : ParseTexturePaths(settings)) {
            const auto [known, isNew] = newPaths.try_emplace(path.Text(), path.Text());
            if (!isNew)
                continue;
            const std::string shown =
                OnOneLine(entry.Name.Native() + ": " + ToUtf8(path.Text(), SystemCodePage()));
            if (!path.StaysBelow()) {
                bar.Tell(shown + " leads out of the simulator's folder and is left alone");
                continue;
            }
            const bool isThere = FindIgnoringCase(path.Text(), newFolder, 0) != text::npos;
            if (!isThere)
                known->second = ReplacedIgnoringCase(path.Text(), EnvironmentsFolder, newFolder);
            if (!CopyTexture(path, DocumentPath(known->second), entry, newFolder, shown))
                return false;
        }
        newPaths.erase(text());
        settings = ReplacedAtOnce(settings, newPaths);
        return true;
    }

    bool CopyTexture(const DocumentPath& from, const DocumentPath& to, const EnvironmentEntry& entry,
                     const text& newFolder, const std::string& shown) {
        FileBuffer texture;
        const FilePath source = place.Names.Find(place.sNLFolder, from);
        if (!place.Names.IsComplete())
            return Succeeded(FileResult::Failure("its folder cannot be listed"), source);
        const FileStatus status = Files().Status(source);
        if (status.Error)
            return Succeeded(FileResult::Failure("cannot be checked: " + status.Error.message()), source);
        if (status.What != FileStatus::Kind::File || status.Hidden) {
            bar.Tell(shown + " is missing");
            return true;
        }
        const FilePath folder = place.FolderOf(entry);
        if (!Succeeded(ReadFileBuffer(source, texture), source) || !Succeeded(CreateFolders(folder), folder))
            return false;
        if (from == to)
            return true;
        const FilePath target = PlaceFor(to, newFolder);
        if (LeadsThroughLink(target, to.Names().size()))
            return Succeeded(FileResult::Failure("leads through a link, nothing is written there"), target);
        if (!Succeeded(CreateFolders(target.Folder()), target.Folder()))
            return false;
        ClearOnce(target.Folder());
        if (!WriteCopy(target, texture, source, shown))
            return false;
        bar.RunPendingEvents();
        return true;
    }

    /// Writes a copy, unless the file exists. An existing file is from an earlier run or the user's own, so
    /// it is kept.
    bool WriteCopy(const FilePath& target, const FileBuffer& texture, const FilePath& source,
                   const std::string& shown) {
        FileBuffer existing;
        if (Files().Status(target).What == FileStatus::Kind::Missing) {
            if (!Succeeded(WriteFileBuffer(target, texture, source), target))
                return false;
            bar.Tell(shown + " copied");
        } else if (!Succeeded(ReadWholeFile(target, existing), target)) {
            return false;
        } else if (existing != texture) {
            bar.Tell(shown + ": a different file is already in " + target.Shown() + " and is kept");
        }
        return true;
    }

    /// Returns the path for a copy. In the environment's folder, names are used exactly as written, so that
    /// two names that differ in case stay separate files.
    FilePath PlaceFor(const DocumentPath& copy, const text& newFolder) {
        const std::size_t inside = FindIgnoringCase(copy.Text(), newFolder, 0) + newFolder.size();
        const DocumentPath folder(copy.Text().substr(0, inside));
        return DocumentPath(copy.Text().substr(inside)).In(place.Names.Find(place.sNLFolder, folder));
    }

    /// Returns whether one of the last `names` parts of a path is a link or cannot be checked. The
    /// environments folder itself may be a link.
    bool LeadsThroughLink(FilePath path, std::size_t names) const {
        for (; names > 0; --names, path = path.Folder())
            if (const FileStatus status = Files().Status(path);
                path != place.sEnvFolder && (status.IsLink || status.Error))
                return true;
        return false;
    }

    void MoveUnusedFiles() {
        const FilePath target = place.Names.Find(place.sEnvFolder, FileName(UnusedFolder));
        const FileStatus status = Files().Status(target);
        if (status.IsLink || status.Error) {
            Succeeded(FileResult::Failure(status.IsLink ? "is a link, no file is moved there"
                                                        : "cannot be checked: " + status.Error.message()),
                      target);
            return;
        }
        std::error_code error;
        if (status.What == FileStatus::Kind::Missing)
            Files().CreateFolder(target, error);
        std::vector<LooseFile> files = FilesIn(place.sEnvFolder, error);
        std::erase_if(files, [](const LooseFile& file) {
            return HasExtension(file.Name.Native(), EnvironmentExtension);
        });
        // A file with the name of an environment's folder makes that environment count as organized. It is
        // therefore moved last.
        std::set<FilePath> folders;
        for (const EnvironmentEntry& entry : List())
            folders.insert(place.FolderOf(entry));
        std::stable_partition(files.begin(), files.end(), [&](const LooseFile& file) {
            return !folders.contains(place.Names.Find(place.sEnvFolder, file.Name));
        });
        for (const LooseFile& file : files) {
            std::error_code taken;
            std::string why = file.PassedOver();
            if (why.empty()) {
                Files().Move(place.sEnvFolder / file.Name, target / file.Name, taken);
                why = taken ? taken.message() : "";
            }
            bar.Tell(file.Name.Shown() + (why.empty() ? std::string(": moved to ") + UnusedFolder
                                                      : ": stays where it is, " + why));
            bar.RunPendingEvents();
        }
    }

    bool Succeeded(const FileResult& result, const FilePath& path) {
        if (!result) {
            allWell = false;
            bar.Tell(path.Shown() + ": " + result.Reason);
        }
        return result.Done;
    }

    Installation place;
    EnvironmentScan scan;
    OrganizerProgress& bar;
    bool allWell;
    /// The files of the environments still to be organized, and of those in the list on the disk.
    std::set<FileName> unfinished, listed;
    std::set<FilePath> cleared;
    /// The list on the disk names all environments being organized.
    bool isBegun = false;
};

} // namespace

EnvironmentScan ScanEnvironments(const FilePath& sNoLimitsPath) {
    Installation place(sNoLimitsPath);
    return Scan(place);
}

bool OrganizeEnvironments(const FilePath& sNoLimitsPath, OrganizerProgress& pbProgress) {
    static bool isRunning = false; // the window processes events during a run
    if (isRunning)
        return true;
    struct Running {
        Running() { isRunning = true; }
        ~Running() { isRunning = false; }
    } const running;
    pbProgress.Clear();
    Run run(sNoLimitsPath, pbProgress);
    run.Begin();
    const std::size_t count = run.List().size();
    for (std::size_t i = 0; i < count; ++i) {
        run.Organize(run.List()[i]);
        pbProgress.ShowShare(static_cast<int>(i * 100 / count));
        pbProgress.RunPendingEvents();
    }
    const bool allWell = run.End();
    pbProgress.ShowDone();
    return allWell;
}

std::vector<DocumentPath> ParseTexturePaths(const text& sText) {
    std::vector<DocumentPath> paths;
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
            paths.emplace_back(path);
        }
        key = end;
    }
    return paths;
}

} // namespace railwright
