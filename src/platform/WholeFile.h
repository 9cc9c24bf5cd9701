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

/// Whether a file was read or written, and if not, why.
struct FileResult {
    static constexpr std::int64_t NoByte = -1;

    bool Done = true;
    /// What went wrong, as one line without the file's name; empty when Done.
    std::string Reason;
    /// Position in the file that the reason refers to, in bytes, or NoByte if it concerns the whole file.
    std::int64_t Byte = NoByte;
    /// After a save that failed and lost the old file: the file that holds the new content.
    FilePath KeptIn = {};
    /// A file that holds old content: after a save that failed and could not put it back, or, after one that
    /// succeeded, from an earlier save that was interrupted.
    FilePath OldKeptIn = {};

    explicit operator bool() const { return Done; }
    /// Returns the reason with its position, if it has one.
    std::string WithByte() const {
        return Byte == NoByte ? Reason : Reason + " at byte " + std::to_string(Byte);
    }
    static FileResult Failure(std::string reason, std::int64_t byte = NoByte) {
        return {.Done = false, .Reason = std::move(reason), .Byte = byte};
    }
};

/// @return whether a file of that name exists; folders, hidden files and system files count as absent.
bool FileExists(const FilePath& path);

/// @return whether there is a file of that name to be read, or what stands in the way. A file that the user
/// does not see counts as missing.
FileResult FindFile(const FilePath& path);

/// @return the file's length in bytes, 0 if there is no such file.
std::int64_t FileLength(const FilePath& path);

/// A file that is read from its first byte on.
struct FileToRead {
    std::unique_ptr<OpenFile> File;
    /// Bytes.
    std::int64_t Length = 0;
};

/// Opens a file to be read. One of 2 GiB or more is refused.
FileResult OpenWholeFile(const FilePath& path, FileToRead& opened);

/// Reads a whole file. One of 2 GiB or more is refused. On failure `bytes` is empty.
FileResult ReadWholeFile(const FilePath& path, std::vector<std::uint8_t>& bytes);

/// Writes all bytes to a file, however many a single call takes.
void WriteAll(OpenFile& file, std::span<const std::uint8_t> bytes, std::error_code& error);

/// Writes what a file is to hold into it, the same each time it is called. It does not throw, and leaves the
/// first failure in `error`.
using FileContent = std::function<void(OpenFile& file, std::error_code& error)>;

/// Brings the content into a file, from the place on that it stands at, and to the disk.
void Fill(OpenFile& file, const FileContent& content, std::error_code& error);

/// What becomes of files in the same folder that saves have left which ended in the middle. To find them
/// takes a look at all names there.
enum class Leftovers { Delete, Keep };

/// Writes a whole file. The content is written to a temporary file in the same folder and flushed; the file
/// is then renamed over the old one, and the folder is flushed. Follows symbolic links; keeps the owner, the
/// rights and the attributes of the old file. The old file is overwritten in place if the folder takes no new
/// file, if a new one could not have its rights, or if it cannot be replaced. On failure the old file is as
/// it was and no temporary file remains, with two exceptions: KeptIn and OldKeptIn name the content if a file
/// system lost the old file, and a folder that cannot be flushed already has the new file.
/// @param model for a new file, one whose rights it may not exceed; empty for the usual rights.
FileResult WriteWholeFile(const FilePath& path, const FileContent& content,
                          Leftovers leftovers = Leftovers::Delete, const FilePath& model = {});
FileResult WriteWholeFile(const FilePath& path, std::span<const std::uint8_t> bytes,
                          Leftovers leftovers = Leftovers::Delete, const FilePath& model = {});

/// Makes a folder and those above it that are missing.
FileResult CreateFolders(const FilePath& path);

} // namespace railwright
