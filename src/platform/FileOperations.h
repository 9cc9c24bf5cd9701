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

/// What stands under a name on the disk.
struct FileStatus {
    /// Other is a device, a pipe or the like. Unknown is what the system cannot tell.
    enum class Kind { Missing, File, Folder, Other, Unknown };
    Kind What = Kind::Missing;
    /// Kept out of the user's sight: by the hidden or system attribute, or by its name.
    bool Hidden = false;
    /// The user may change its content.
    bool Writable = false;
    /// Bytes; 0 for anything that is not a file.
    std::int64_t Length = 0;
    /// Why it is Unknown.
    std::error_code Error = {};
    /// The name is that of a link to another place. All else here is told of that place where the surrounding
    /// follows it; one that leads nowhere is Missing.
    bool IsLink = false;
};

/// A file that is open. It is closed when it goes; what could fail then, Flush has told.
class OpenFile {
public:
    virtual ~OpenFile() = default;
    /// @return the number of bytes read, 0 at the end of the file or on failure.
    virtual std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) = 0;
    /// @return the number of bytes written, which may be fewer than given.
    virtual std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) = 0;
    /// Cuts the file off at the place that the writing has reached.
    virtual void CutOff(std::error_code& error) = 0;
    /// Waits until what was written is on the disk itself.
    virtual void Flush(std::error_code& error) = 0;
    /// Goes back to the first byte.
    virtual void Rewind(std::error_code& error) = 0;
    /// @return bytes.
    virtual std::int64_t Length(std::error_code& error) = 0;
};

/// A new file on its way to its name. Until it has one it is out of the user's sight, without any name where
/// the system can do so, and it is gone when this goes.
class NewFile {
public:
    virtual ~NewFile() = default;
    virtual OpenFile& Content() = 0;
    /// Takes its name in one step, and the place of a file that stands there.
    virtual void TakePlace(std::error_code& error) = 0;
    /// Takes another name instead, and fails if that is taken.
    virtual void KeepAs(const FilePath& path, std::error_code& error) = 0;
};

/// The single calls by which the program reads or changes the disk, one implementation for each surrounding.
/// A name is taken just as it is written. A call that fails sets `error` and changes nothing.
class FileOperations {
public:
    virtual ~FileOperations() = default;

    virtual FileStatus Status(const FilePath& path) = 0;
    /// @return the file's own name behind any symbolic links, also where the last link leads to nothing yet.
    virtual FilePath BehindLinks(const FilePath& path, std::error_code& error) = 0;
    /// Waits for a process that overwrites the file in place.
    virtual std::unique_ptr<OpenFile> OpenToRead(const FilePath& path, std::error_code& error) = 0;
    /// Makes a file that is to take the name `path`.
    /// @param model the file that it gets its rights from; empty for the usual rights. `path` itself for a
    /// file to be replaced: the new one takes over its owner, rights and attributes, and the call fails if
    /// that is not permitted. With any other model nobody gets more rights than that file gives.
    virtual std::unique_ptr<NewFile> OpenNew(const FilePath& path, const FilePath& model,
                                             std::error_code& error) = 0;
    /// Makes a file of that name that only the user may read and write, and fails if the name is taken.
    virtual std::unique_ptr<OpenFile> OpenCopy(const FilePath& path, std::error_code& error) = 0;
    /// @return whether the file is the user's own and no process has it open from OpenCopy.
    virtual bool IsAbandoned(const FilePath& path) = 0;
    /// Opens an existing file to be read and written from its first byte on. While it is open, other
    /// processes that open it to read or overwrite wait for up to three seconds, then fail with
    /// resource_unavailable_try_again. A request to end the process is held back until it is closed.
    virtual std::unique_ptr<OpenFile> OpenToOverwrite(const FilePath& path, std::error_code& error) = 0;
    /// Renames a file or folder and fails if the new name is taken.
    virtual void Move(const FilePath& from, const FilePath& to, std::error_code& error) = 0;
    virtual void Delete(const FilePath& path, std::error_code& error) = 0;
    /// Makes one folder, whose parent exists.
    virtual void CreateFolder(const FilePath& path, std::error_code& error) = 0;
    /// @return the names of all that lies in a folder, in an order that stays the same.
    virtual std::vector<FileName> List(const FilePath& folder, std::error_code& error) = 0;
    /// Waits until the names in a folder are on the disk itself. Does nothing if the file system cannot do
    /// it.
    virtual void FlushFolder(const FilePath& folder, std::error_code& error) = 0;
    /// Deletes what processes that ended in the middle of a save have left in a folder, and nothing else.
    virtual void DeleteLeftovers(const FilePath& folder) = 0;
    /// @return the folders for temporary files, the best one first.
    virtual std::vector<FilePath> TemporaryFolders() = 0;
};

/// The operations in force: the system's own, or those that a test has put in their place.
FileOperations& Files();

/// While it lives, Files() is `replacement`.
class ScopedFileOperations {
public:
    explicit ScopedFileOperations(FileOperations& replacement);
    ~ScopedFileOperations();
    ScopedFileOperations(const ScopedFileOperations&) = delete;
    ScopedFileOperations& operator=(const ScopedFileOperations&) = delete;

private:
    FileOperations* before;
};

/// The system's own operations; each surrounding supplies them.
FileOperations& SystemFiles();

} // namespace railwright
