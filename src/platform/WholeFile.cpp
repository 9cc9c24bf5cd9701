#include "platform/WholeFile.h"

#include "base/FileName.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace railwright {
namespace {

using Kind = FileStatus::Kind;

constexpr std::int64_t LongestFile = std::numeric_limits<std::int32_t>::max();

FileResult Failed(const char* what, const std::error_code& error, std::int64_t byte = 0) {
    return FileResult::Failure(std::string(what) + ": " + error.message(), byte);
}

void WriteAll(OpenFile& file, std::span<const std::uint8_t> bytes, std::error_code& error) {
    while (!bytes.empty() && !error) {
        const std::size_t written = file.Write(bytes, error);
        if (written == 0 && !error)
            error = std::make_error_code(std::errc::io_error);
        bytes = bytes.subspan(written);
    }
}

/// Brings the bytes into an open file and closes it; the first failure is kept.
std::error_code Fill(OpenFile& file, std::span<const std::uint8_t> bytes) {
    std::error_code error;
    WriteAll(file, bytes, error);
    if (!error)
        file.CutOff(error);
    if (!error)
        file.Flush(error);
    std::error_code closing;
    file.Close(closing);
    return error ? error : closing;
}

/// Overwrites an existing file where its folder takes no new one. If that fails, the old content is put back.
FileResult OverwriteInPlace(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::vector<std::uint8_t> old;
    if (FileResult read = ReadWholeFile(path, 0, old); !read)
        return read;
    std::error_code error;
    auto file = Files().OpenToOverwrite(path, error);
    if (!file)
        return Failed("cannot be written", error);
    error = Fill(*file, bytes);
    if (!error)
        return {};
    std::error_code restoring;
    if (auto again = Files().OpenToOverwrite(path, restoring); again)
        restoring = Fill(*again, old);
    return Failed(
        restoring ? "cannot be written, and its old content cannot be put back" : "cannot be written", error);
}

/// Writes to what is neither file nor folder, a device for example: there is nothing that could be lost.
FileResult WriteToDevice(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::error_code error;
    const auto device = Files().OpenToOverwrite(path, error);
    if (device) {
        WriteAll(*device, bytes, error);
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

FileResult ReadWholeFile(const std::string& path, std::size_t spare, std::vector<std::uint8_t>& bytes) {
    return ReadBeginning(path, LongestFile, spare, bytes);
}

FileResult ReadBeginning(const std::string& path, std::int64_t most, std::size_t spare,
                         std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    std::error_code error;
    const auto file = Files().OpenToRead(path, error);
    if (!file)
        return Failed("cannot be opened", error);
    const std::int64_t length = FileLength(path);
    if (length > LongestFile - static_cast<std::int64_t>(spare))
        return FileResult::Failure("is too long, 2 GiB and more cannot be read");
    const auto size = static_cast<std::size_t>(std::min(length, most));
    bytes.resize(size + spare);
    const std::span<std::uint8_t> wanted(bytes.data(), size);
    std::size_t done = 0;
    while (done < wanted.size() && !error) {
        const std::size_t read = file->Read(wanted.subspan(done), error);
        if (read == 0)
            break;
        done += read;
    }
    if (error) {
        bytes = {};
        return Failed("cannot be read", error, static_cast<std::int64_t>(done));
    }
    bytes.resize(done + spare); // shorter if another process has cut the file off meanwhile
    return {};
}

FileResult WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    FileOperations& files = Files();
    const std::string target = files.BehindLinks(path);
    const FileStatus old = files.ExactStatus(target);
    if (old.What == Kind::Folder)
        return FileResult::Failure("is a folder");
    if (old.What == Kind::Other)
        return WriteToDevice(target, bytes);
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
            return OverwriteInPlace(target, bytes);
        return Failed("cannot be written", error);
    }
    error = Fill(*file, bytes);
    if (!error)
        files.Replace(temporary, target, error);
    if (error) {
        std::error_code ignored;
        files.Delete(temporary, ignored);
        return Failed("cannot be written", error);
    }
    files.FlushFolder(FolderOf(target));
    return {};
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
