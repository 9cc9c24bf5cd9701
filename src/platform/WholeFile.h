#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace railwright {

class OpenFile;

/// The result of reading or writing a file.
struct FileResult {
    static constexpr std::int64_t NoByte = -1;

    bool Done = true;
    /// The error in one line, without the file's name; empty if Done.
    std::string Reason;
    /// Position in the file that the reason refers to, in bytes, or NoByte if it concerns the whole file.
    std::int64_t Byte = NoByte;
    /// The file that holds the new content after a failed save that lost the old file.
    FilePath KeptIn = {};
    /// A file that holds old content. After a failed save, it is content that could not be restored. After a
    /// successful one, it was left by an earlier, interrupted save.
    FilePath OldKeptIn = {};

    explicit operator bool() const { return Done; }
    std::string WithByte() const {
        return Byte == NoByte ? Reason : Reason + " at byte " + std::to_string(Byte);
    }
    static FileResult Failure(std::string reason, std::int64_t byte = NoByte) {
        return {.Done = false, .Reason = std::move(reason), .Byte = byte};
    }
};

/// Returns whether the file exists. Folders, hidden files and system files count as missing.
bool FileExists(const FilePath& path);

/// Checks that a file exists and is neither a folder nor a device. Hidden files count as missing.
FileResult FindFile(const FilePath& path);

/// Returns the file's length in bytes; 0 if the file is missing.
std::int64_t FileLength(const FilePath& path);

/// A file opened at its first byte.
struct FileToRead {
    std::unique_ptr<OpenFile> File;
    /// Bytes.
    std::int64_t Length = 0;
};

/// Opens a file to read. Refuses files of 2 GiB or more.
FileResult OpenWholeFile(const FilePath& path, FileToRead& opened);

/// Reads a whole file. Refuses files of 2 GiB or more. On failure `bytes` is empty.
FileResult ReadWholeFile(const FilePath& path, std::vector<std::uint8_t>& bytes);

/// Writes all bytes, with as many system calls as needed.
void WriteAll(OpenFile& file, std::span<const std::uint8_t> bytes, std::error_code& error);

/// Writes the content of a file, the same on every call. Does not throw. Stores the first failure in `error`.
using FileContent = std::function<void(OpenFile& file, std::error_code& error)>;

/// Writes the content at the current position, truncates the file after it, then flushes it.
void Fill(OpenFile& file, const FileContent& content, std::error_code& error);

/// The treatment of files left in the folder by interrupted saves. Deleting them lists the whole folder.
enum class Leftovers { Delete, Keep };

/// Writes a whole file. Follows symbolic links. Keeps the rights and the attributes of the old file, and on
/// POSIX its owner if permitted.
///
/// The content is written to a temporary file in the same folder and flushed. That file is then renamed over
/// the old one, and the folder is flushed. In three cases the old file is overwritten in place: the folder
/// accepts no new file, a new file could not get its rights, or the old file cannot be replaced.
///
/// On failure the old file is unchanged and no temporary file remains. There are two exceptions. If the file
/// system lost the old file or its content, KeptIn or OldKeptIn names a file that holds it. If only flushing
/// the folder failed, the new file is already in place.
/// @param model for a new file, the file whose rights it may not exceed; empty for the default rights.
/// Windows ignores it.
FileResult WriteWholeFile(const FilePath& path, const FileContent& content,
                          Leftovers leftovers = Leftovers::Delete, const FilePath& model = {});
FileResult WriteWholeFile(const FilePath& path, std::span<const std::uint8_t> bytes,
                          Leftovers leftovers = Leftovers::Delete, const FilePath& model = {});

/// Creates a folder and its missing parents.
FileResult CreateFolders(const FilePath& path);

} // namespace railwright
