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
    bool Done = true;
    /// What went wrong, as one line without the file's name; empty when Done.
    std::string Reason;
    /// The byte of the file that the reason speaks of, counted from 0.
    std::int64_t Byte = 0;
    /// After a save that has lost the old file as well: the file that holds the new content, and the one that
    /// holds the old.
    FilePath KeptIn = {};
    FilePath OldKeptIn = {};

    explicit operator bool() const { return Done; }
    static FileResult Failure(std::string reason, std::int64_t byte = 0) {
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

/// Writes a whole file. At every moment either the old file or the new one stands whole under the name: the
/// bytes go to a new file in the same folder, to the disk, and then under the name. A symbolic link is
/// followed; the owner, the rights and the attributes of the old file are kept. Only where the folder takes
/// no new file, or a new one could not have the rights of the old, that one is overwritten in place. On
/// failure the old file is as it was and no temporary file stays. Only if a file system loses the old file
/// all the same, KeptIn or OldKeptIn names what there is of it.
FileResult WriteWholeFile(const FilePath& path, const FileContent& content,
                          Leftovers leftovers = Leftovers::Delete);
FileResult WriteWholeFile(const FilePath& path, std::span<const std::uint8_t> bytes,
                          Leftovers leftovers = Leftovers::Delete);

/// Makes a folder and those above it that are missing.
FileResult CreateFolders(const FilePath& path);

} // namespace railwright
