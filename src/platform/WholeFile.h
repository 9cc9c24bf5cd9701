#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace railwright {

class OpenFile;

/// Whether a file was read or written, and if not, why.
struct FileResult {
    bool Done = true;
    /// What went wrong, as one line without the file's name; empty when Done.
    std::string Reason;
    /// The byte of the file that the reason speaks of, counted from 0.
    std::int64_t Byte = 0;
    /// After a save that has lost the old file as well: the file that holds the new content, as the user
    /// knows it.
    std::string KeptIn = {};

    explicit operator bool() const { return Done; }
    static FileResult Failure(std::string reason, std::int64_t byte = 0) {
        return {.Done = false, .Reason = std::move(reason), .Byte = byte};
    }
};

/// @return whether a file of that name exists; folders, hidden files and system files count as absent.
bool FileExists(const std::string& path);

/// @return the file's length in bytes, 0 if there is no such file.
std::int64_t FileLength(const std::string& path);

/// A file that is read from its first byte on.
struct FileToRead {
    std::unique_ptr<OpenFile> File;
    /// Bytes.
    std::int64_t Length = 0;
};

/// Opens a file to be read. One of 2 GiB or more is refused.
FileResult OpenWholeFile(const std::string& path, FileToRead& opened);

/// Reads a whole file. One of 2 GiB or more is refused. On failure `bytes` is empty.
FileResult ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes);

/// Writes all bytes to a file, however many a single call takes.
void WriteAll(OpenFile& file, std::span<const std::uint8_t> bytes, std::error_code& error);

/// Writes what a file is to hold into it, the same each time it is called. It does not throw, and leaves the
/// first failure in `error`.
using FileContent = std::function<void(OpenFile& file, std::error_code& error)>;

/// Writes a whole file. At every moment either the old file or the new one stands whole under the name: the
/// bytes go to a temporary file in the same folder, to the disk, and then under the name. A symbolic link is
/// followed, the permissions of the old file are kept. Only where the folder takes no new file is the old one
/// overwritten in place. On failure the old file is as it was and no temporary file stays; only if a file
/// system loses the old file in the middle of the exchange, the temporary one stays and KeptIn names it.
FileResult WriteWholeFile(const std::string& path, const FileContent& content);
FileResult WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes);

/// Makes a folder and those above it that are missing.
FileResult CreateFolders(const std::string& path);

} // namespace railwright
