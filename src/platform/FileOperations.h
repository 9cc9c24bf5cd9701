#pragma once

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
    enum class Kind { Missing, File, Folder, Other };
    Kind What = Kind::Missing;
    /// Kept out of the user's sight: the hidden or system attribute, or a name that begins with a dot.
    bool Hidden = false;
    /// The user may change its content.
    bool Writable = false;
    /// Bytes; 0 for anything that is not a file.
    std::int64_t Length = 0;
};

/// A file that is open. It is closed when it goes, without a word on failure; who writes calls Close.
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
    virtual void Close(std::error_code& error) = 0;
};

/// The single calls by which the program reads or changes the disk, one implementation for each surrounding.
/// Paths are UTF-8 in Windows form. A call that fails sets `error` and changes nothing.
class FileOperations {
public:
    virtual ~FileOperations() = default;

    virtual FileStatus Status(const std::string& path) = 0;
    /// Like Status, but never speaks of a file whose name differs in the case of its letters.
    virtual FileStatus ExactStatus(const std::string& path) = 0;
    /// @return the file's own name behind any symbolic links, also where the last link leads to nothing yet.
    virtual std::string BehindLinks(const std::string& path) = 0;
    virtual std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) = 0;
    /// Makes a new file and fails if the name is taken. With `like` not empty the new file takes over the
    /// permissions of that one.
    virtual std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string& like,
                                              std::error_code& error) = 0;
    /// Opens an existing file to be written from its first byte on, keeping its content until then.
    virtual std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) = 0;
    /// Renames `from` to `to`, taking the place of a file that stands there, in one step.
    virtual void Replace(const std::string& from, const std::string& to, std::error_code& error) = 0;
    /// Renames a file or folder and fails if the new name is taken.
    virtual void Move(const std::string& from, const std::string& to, std::error_code& error) = 0;
    virtual void Delete(const std::string& path, std::error_code& error) = 0;
    /// Makes one folder, whose parent exists.
    virtual void CreateFolder(const std::string& path, std::error_code& error) = 0;
    /// @return the names of all that lies in a folder, in an order that stays the same.
    virtual std::vector<std::string> List(const std::string& folder, std::error_code& error) = 0;
    /// Waits until the names in a folder are on the disk itself, where the surrounding can do so.
    virtual void FlushFolder(const std::string& folder) = 0;
    /// @return a name for a temporary file beside `path` that no other process uses.
    virtual std::string TemporaryNameBeside(const std::string& path) = 0;
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
