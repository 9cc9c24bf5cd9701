#include "platform/WholeFile.h"

#include "base/FileName.h"
#include "platform/FileOperations.h"
#include "platform/Paths.h"

#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace railwright {
namespace {

using Kind = FileStatus::Kind;

constexpr std::int64_t LongestFile = std::numeric_limits<std::int32_t>::max();

FileResult Failed(const char* what, const std::error_code& error, std::int64_t byte = 0) {
    return FileResult::Failure(std::string(what) + ": " + error.message(), byte);
}

/// Brings the content into an open file and closes it; the first failure is kept.
std::error_code Fill(OpenFile& file, const FileContent& content) {
    std::error_code error;
    content(file, error);
    if (!error)
        file.CutOff(error);
    if (!error)
        file.Flush(error);
    std::error_code closing;
    file.Close(closing);
    return error ? error : closing;
}

FileContent ContentOf(std::span<const std::uint8_t> bytes) {
    return [bytes](OpenFile& file, std::error_code& error) { WriteAll(file, bytes, error); };
}

/// Overwrites an existing file where its folder takes no new one. If that fails, the old content is put back.
FileResult OverwriteInPlace(const std::string& path, const FileContent& content) {
    std::vector<std::uint8_t> old;
    if (FileResult read = ReadWholeFile(path, old); !read)
        return read;
    std::error_code error;
    auto file = Files().OpenToOverwrite(path, error);
    if (!file)
        return Failed("cannot be written", error);
    error = Fill(*file, content);
    if (!error)
        return {};
    std::error_code restoring;
    if (auto again = Files().OpenToOverwrite(path, restoring); again)
        restoring = Fill(*again, ContentOf(old));
    return Failed(
        restoring ? "cannot be written, and its old content cannot be put back" : "cannot be written", error);
}

/// Writes to what is neither file nor folder, a device for example: there is nothing that could be lost.
FileResult WriteToDevice(const std::string& path, const FileContent& content) {
    std::error_code error;
    const auto device = Files().OpenToOverwrite(path, error);
    if (device) {
        content(*device, error);
        std::error_code closing;
        device->Close(closing);
        error = error ? error : closing;
    }
    return error ? Failed("cannot be written", error) : FileResult{};
}

} // namespace

bool FileExists(const std::string& path) {
    const FileStatus status = Files().Status(path);
    return status.What == Kind::File && !status.Hidden;
}

std::int64_t FileLength(const std::string& path) {
    return Files().Status(path).Length;
}

FileResult OpenWholeFile(const std::string& path, FileToRead& opened) {
    std::error_code error;
    opened.File = Files().OpenToRead(path, error);
    if (!opened.File)
        return Failed("cannot be opened", error);
    opened.Length = FileLength(path);
    if (opened.Length > LongestFile)
        return FileResult::Failure("is too long, 2 GiB and more cannot be read");
    return {};
}

FileResult ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
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
    bytes.resize(done); // shorter if another process has cut the file off meanwhile
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

FileResult WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    return WriteWholeFile(path, ContentOf(bytes));
}

FileResult WriteWholeFile(const std::string& path, const FileContent& content) {
    FileOperations& files = Files();
    const std::string target = files.BehindLinks(path);
    const FileStatus old = files.ExactStatus(target);
    if (old.What == Kind::Folder)
        return FileResult::Failure("is a folder");
    if (old.What == Kind::Other)
        return WriteToDevice(target, content);
    const bool exists = old.What == Kind::File;
    if (exists && !old.Writable)
        return FileResult::Failure("is write-protected");

    std::error_code error;
    const std::string temporary = files.TemporaryNameBeside(target);
    const auto file = files.OpenNew(temporary, exists ? target : "", error);
    if (!file) {
        const bool folderIsClosed = error == std::errc::permission_denied ||
                                    error == std::errc::operation_not_permitted ||
                                    error == std::errc::read_only_file_system;
        if (exists && folderIsClosed)
            return OverwriteInPlace(target, content);
        return Failed("cannot be written", error);
    }
    error = Fill(*file, content);
    const bool whole = !error;
    if (whole)
        files.Replace(temporary, target, error);
    if (!error) {
        files.FlushFolder(FolderOf(target));
        return {};
    }
    FileResult failed = Failed("cannot be written", error);
    if (whole && exists && files.ExactStatus(target).What == Kind::Missing) {
        // The old file has gone in the middle of the exchange: this is all there is.
        failed.KeptIn = PathForOutside(temporary);
        failed.Reason += ", and the file of that name is gone; what was to be in it is in " + failed.KeptIn;
        return failed;
    }
    std::error_code ignored;
    files.Delete(temporary, ignored);
    return failed;
}

FileResult CreateFolders(const std::string& path) {
    const std::string folder = path.ends_with('\\') ? path.substr(0, path.size() - 1) : path;
    if (folder.empty() || Files().Status(folder).What == Kind::Folder)
        return {};
    if (FileResult above = CreateFolders(FolderOf(folder)); !above)
        return above;
    std::error_code error;
    Files().CreateFolder(folder, error);
    return error ? Failed("cannot be created", error) : FileResult{};
}

} // namespace railwright
