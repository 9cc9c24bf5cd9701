#pragma once

#include "platform/FilePath.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace railwright {

/// The status of a path on the disk.
struct FileStatus {
    /// Other is a device, a pipe or similar. Unknown means that the system reported an error.
    enum class Kind { Missing, File, Folder, Other, Unknown };
    Kind What = Kind::Missing;
    /// Hidden by the hidden or system attribute, or by its name.
    bool Hidden = false;
    /// The user may change the content.
    bool Writable = false;
    /// Bytes; 0 for anything except a file.
    std::int64_t Length = 0;
    /// The reason for Unknown.
    std::error_code Error = {};
    /// The path is a symbolic link. The other fields describe the link's target on systems that follow links.
    /// A dangling link is Missing.
    bool IsLink = false;
};

/// An open file. Closed on destruction. Flush reports any write error first.
class OpenFile {
public:
    virtual ~OpenFile() = default;
    /// Returns the number of bytes read; 0 at the end of the file or on failure.
    virtual std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) = 0;
    /// Returns the number of bytes written, possibly fewer than given.
    virtual std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) = 0;
    /// Truncates the file at the current position.
    virtual void CutOff(std::error_code& error) = 0;
    /// Flushes the written data to the disk.
    virtual void Flush(std::error_code& error) = 0;
    /// Moves the position to the first byte.
    virtual void Rewind(std::error_code& error) = 0;
    /// Returns the length in bytes.
    virtual std::int64_t Length(std::error_code& error) = 0;
};

/// A new file that has not yet got its final name. Until then it is hidden, and nameless if the system allows
/// that. Destruction deletes it unless it was given a name.
class NewFile {
public:
    virtual ~NewFile() = default;
    virtual OpenFile& Content() = 0;
    /// Gives the file its final name in one step. Replaces any existing file of that name.
    virtual void TakePlace(std::error_code& error) = 0;
    /// Gives the file another name instead. Fails if that name exists.
    virtual void KeepAs(const FilePath& path, std::error_code& error) = 0;
};

/// All system calls that read or change the disk, with one implementation per platform. Names are used
/// exactly as given. On failure, a call sets `error` and changes nothing.
class FileOperations {
public:
    virtual ~FileOperations() = default;

    virtual FileStatus Status(const FilePath& path) = 0;
    /// Resolves symbolic links, including a dangling last one. Returns the path of the target.
    virtual FilePath BehindLinks(const FilePath& path, std::error_code& error) = 0;
    /// Opens a file to read. Waits while another process overwrites the file in place.
    virtual std::unique_ptr<OpenFile> OpenToRead(const FilePath& path, std::error_code& error) = 0;
    /// Creates a temporary file that will get the name `path`.
    /// @param model the file whose rights the new one gets; empty for the default rights. If it equals
    /// `path`, the new file takes over the rights and attributes of the file that it replaces. On POSIX it
    /// also takes over the owner if permitted. The call fails if the rights cannot be kept. With any other
    /// model, nobody gets more rights than the model grants; Windows ignores such a model.
    virtual std::unique_ptr<NewFile> OpenNew(const FilePath& path, const FilePath& model,
                                             std::error_code& error) = 0;
    /// Creates a file. Fails if the name exists. On POSIX, only the user may read and write the file; on
    /// Windows, its rights come from the folder.
    virtual std::unique_ptr<OpenFile> OpenCopy(const FilePath& path, std::error_code& error) = 0;
    /// Returns whether no process still has the file open from OpenCopy. On POSIX, the file must also belong
    /// to the user.
    virtual bool IsAbandoned(const FilePath& path) = 0;
    /// Opens an existing file to read and overwrite from its first byte. Other processes that open it wait
    /// for a moment, then fail; on POSIX after three seconds, with resource_unavailable_try_again. POSIX
    /// systems hold back termination signals until the file is closed.
    virtual std::unique_ptr<OpenFile> OpenToOverwrite(const FilePath& path, std::error_code& error) = 0;
    /// Renames a file or folder. Fails if the new name exists.
    virtual void Move(const FilePath& from, const FilePath& to, std::error_code& error) = 0;
    virtual void Delete(const FilePath& path, std::error_code& error) = 0;
    /// Creates one folder. Its parent must exist.
    virtual void CreateFolder(const FilePath& path, std::error_code& error) = 0;
    /// Returns the names of all entries of a folder, in a stable order.
    virtual std::vector<FileName> List(const FilePath& folder, std::error_code& error) = 0;
    /// Flushes the entries of a folder to the disk. Does nothing if the file system does not support that.
    virtual void FlushFolder(const FilePath& folder, std::error_code& error) = 0;
    /// Deletes only the temporary files left in a folder by interrupted saves. Does nothing on Windows.
    virtual void DeleteLeftovers(const FilePath& folder) = 0;
    /// Returns the folders for temporary files, best first.
    virtual std::vector<FilePath> TemporaryFolders() = 0;
};

/// Returns the current operations: the system's own, or the replacement that a test has set.
FileOperations& Files();

/// Makes Files() return `replacement` during its lifetime.
class ScopedFileOperations {
public:
    explicit ScopedFileOperations(FileOperations& replacement);
    ~ScopedFileOperations();
    ScopedFileOperations(const ScopedFileOperations&) = delete;
    ScopedFileOperations& operator=(const ScopedFileOperations&) = delete;

private:
    FileOperations* before;
};

/// Returns the system's own operations.
FileOperations& SystemFiles();

} // namespace railwright
