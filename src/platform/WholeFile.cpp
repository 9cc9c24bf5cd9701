#include "platform/WholeFile.h"

#include "platform/FileOperations.h"
#include "platform/InPlace.h"

#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace railwright {
namespace {

using Kind = FileStatus::Kind;

constexpr std::int64_t LongestFile = std::numeric_limits<std::int32_t>::max();

FileResult Failed(const char* what, const std::error_code& error, std::int64_t byte = FileResult::NoByte) {
    return FileResult::Failure(std::string(what) + ": " + error.message(), byte);
}

/// Returns why a file with this status cannot be read or replaced.
FileResult RequireFile(const FileStatus& status) {
    switch (status.What) {
    case Kind::Folder:
        return FileResult::Failure("is a folder");
    case Kind::Other:
        return FileResult::Failure("is a device or a pipe, not a file");
    case Kind::Unknown:
        return Failed("cannot be checked", status.Error);
    case Kind::Missing:
        return FileResult::Failure("no such file");
    case Kind::File:
        break;
    }
    return {};
}

/// Returns whether the folder accepts no new file, or a new file could not get the rights of the old one.
bool TakesNoNewFile(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system;
}

/// Returns whether a file cannot be replaced: another user's in a sticky folder, or a mount point.
bool CannotBeReplaced(const std::error_code& error) {
    return error == std::errc::operation_not_permitted || error == std::errc::device_or_resource_busy;
}

/// Keeps the new file when the old one vanished during the exchange.
FileResult Keep(NewFile& file, const FilePath& target, FileResult failed) {
    std::error_code error;
    FilePath kept;
    int number = 0;
    do {
        error.clear();
        kept = target.Folder() / FileName("kept-" + std::to_string(++number) + '-' + target.Name().Native());
        file.KeepAs(kept, error);
    } while (error == std::errc::file_exists);
    failed.Reason += ", and the file of that name is gone";
    if (!error) {
        failed.KeptIn = kept;
        failed.Reason += "; the new content is in " + kept.Shown();
    }
    return failed;
}

} // namespace

bool FileExists(const FilePath& path) {
    const FileStatus status = Files().Status(path);
    return status.What == Kind::File && !status.Hidden;
}

FileResult FindFile(const FilePath& path) {
    FileStatus status = Files().Status(path);
    if (status.Hidden && status.What == Kind::File)
        status.What = Kind::Missing;
    return RequireFile(status);
}

std::int64_t FileLength(const FilePath& path) {
    return Files().Status(path).Length;
}

FileResult OpenWholeFile(const FilePath& path, FileToRead& opened) {
    if (FileResult found = RequireFile(Files().Status(path)); !found)
        return found;
    std::error_code error;
    opened.File = Files().OpenToRead(path, error);
    if (opened.File)
        opened.Length = opened.File->Length(error);
    if (error == std::errc::resource_unavailable_try_again)
        return FileResult::Failure("is being written by another program");
    if (error)
        return Failed("cannot be opened", error);
    if (opened.Length > LongestFile)
        return FileResult::Failure("is too long, 2 GiB and more cannot be read");
    return {};
}

FileResult ReadWholeFile(const FilePath& path, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    FileToRead opened;
    if (FileResult result = OpenWholeFile(path, opened); !result)
        return result;
    try {
        bytes.resize(static_cast<std::size_t>(opened.Length));
    } catch (const std::bad_alloc&) {
        return FileResult::Failure("there is not enough memory to read it");
    }
    std::error_code error;
    std::size_t done = 0;
    while (done < bytes.size() && !error) {
        const std::size_t read = opened.File->Read(std::span(bytes).subspan(done), error);
        if (read == 0)
            break;
        done += read;
    }
    if (error) {
        bytes = {};
        return Failed("cannot be read", error, static_cast<std::int64_t>(done));
    }
    bytes.resize(done); // shorter if another process truncated the file meanwhile
    return {};
}

void WriteAll(OpenFile& file, std::span<const std::uint8_t> bytes, std::error_code& error) {
    while (!bytes.empty() && !error) {
        const std::size_t written = file.Write(bytes, error);
        if (written == 0 && !error)
            error = std::make_error_code(std::errc::io_error);
        bytes = bytes.subspan(written);
    }
}

void Fill(OpenFile& file, const FileContent& content, std::error_code& error) {
    content(file, error);
    if (!error)
        file.CutOff(error);
    if (!error)
        file.Flush(error);
}

FileResult WriteWholeFile(const FilePath& path, std::span<const std::uint8_t> bytes, Leftovers leftovers,
                          const FilePath& model) {
    const auto content = [bytes](OpenFile& file, std::error_code& error) { WriteAll(file, bytes, error); };
    return WriteWholeFile(path, content, leftovers, model);
}

FileResult WriteWholeFile(const FilePath& path, const FileContent& content, Leftovers leftovers,
                          const FilePath& model) {
    if (!path.NamesFile())
        return FileResult::Failure("names no file");
    FileOperations& files = Files();
    const FileStatus old = files.Status(path);
    const bool exists = old.What != Kind::Missing;
    if (FileResult found = RequireFile(old); exists && !found)
        return found;
    if (exists && !old.Writable)
        return FileResult::Failure("is write-protected");
    std::error_code error;
    const FilePath target = files.BehindLinks(path, error);
    if (error)
        return Failed("cannot be written", error);

    auto file = files.OpenNew(target, exists ? target : model, error);
    if (!file)
        return exists && TakesNoNewFile(error) ? OverwriteInPlace(target, content)
                                               : Failed("cannot be written", error);
    Fill(file->Content(), content, error);
    const bool whole = !error;
    if (whole)
        file->TakePlace(error);
    if (!error) {
        files.FlushFolder(target.Folder(), error);
        if (leftovers == Leftovers::Delete)
            files.DeleteLeftovers(target.Folder());
        return error ? Failed("is written, but its folder cannot be flushed to the disk", error)
                     : FileResult{};
    }
    if (whole && exists && CannotBeReplaced(error)) {
        file.reset();
        return OverwriteInPlace(target, content);
    }
    FileResult failed = Failed("cannot be written", error);
    const bool isLost = whole && exists && files.Status(target).What == Kind::Missing;
    return isLost ? Keep(*file, target, std::move(failed)) : failed;
}

FileResult CreateFolders(const FilePath& path) {
    if (path.IsEmpty() || Files().Status(path).What == Kind::Folder)
        return {};
    if (FileResult above = CreateFolders(path.Folder()); !above)
        return above;
    std::error_code error;
    Files().CreateFolder(path, error);
    // Another process may have created it meanwhile.
    const bool isThere = !error || Files().Status(path).What == Kind::Folder;
    return isThere ? FileResult{} : Failed("cannot be created", error);
}

} // namespace railwright
