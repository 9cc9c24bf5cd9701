#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace railwright {

/// Whether a file was read or written, and if not, why.
struct FileResult {
    bool Done = true;
    /// What went wrong, as one line without the file's name; empty when Done.
    std::string Reason;
    /// The byte of the file that the reason speaks of, counted from 0.
    std::int64_t Byte = 0;

    explicit operator bool() const { return Done; }
    static FileResult Failure(std::string reason, std::int64_t byte = 0) {
        return {false, std::move(reason), byte};
    }
};

/// @return whether a file of that name exists; folders, hidden files and system files count as absent.
bool FileExists(const std::string& path);

/// @return the file's length in bytes, 0 if there is no such file.
std::int64_t FileLength(const std::string& path);

/// Reads a whole file into `bytes`, which ends with `spare` zero bytes behind it. Files of 2 GiB and more are
/// refused. On failure `bytes` is empty.
FileResult ReadWholeFile(const std::string& path, std::size_t spare, std::vector<std::uint8_t>& bytes);

/// The same for no more than the first `most` bytes of a file.
FileResult ReadBeginning(const std::string& path, std::int64_t most, std::size_t spare,
                         std::vector<std::uint8_t>& bytes);

/// Writes a whole file. At every moment either the old file or the new one stands whole under the name: the
/// bytes go to a temporary file in the same folder, to the disk, and then under the name. A symbolic link is
/// followed, the permissions of the old file are kept. Only where the folder takes no new file is the old one
/// overwritten in place. On failure the old file is as it was and no temporary file stays.
FileResult WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes);

/// Makes a folder and those above it that are missing.
FileResult CreateFolders(const std::string& path);

} // namespace railwright
