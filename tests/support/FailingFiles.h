#pragma once

#include "platform/FileOperations.h"

#include <cstddef>
#include <limits>

namespace railwright::testing {

/// Thrown where the process is to end suddenly.
struct SuddenEnd {};

/// The system's file operations with faults of the test's choice. While it lives it is in force. Only calls
/// that can fail are counted; calls that only ask are passed on.
class FailingFiles final : public FileOperations {
public:
    /// The number of the call that fails, counted from 1; 0 for none.
    int FailAt = 0;
    /// Instead of a failure the process ends at that call.
    bool EndsSuddenly = false;
    /// A write that fails gives no error, it only writes nothing.
    bool WritesNothing = false;
    /// No write takes more bytes at once.
    std::size_t LongestWrite = std::numeric_limits<std::size_t>::max();
    /// What OpenNew gives; no error for the system's own answer.
    std::errc OpenNewError = {};
    /// Calls made so far.
    int Calls = 0;

    FileStatus Status(const std::string& path) override { return SystemFiles().Status(path); }
    FileStatus ExactStatus(const std::string& path) override { return SystemFiles().ExactStatus(path); }
    std::string BehindLinks(const std::string& path) override { return SystemFiles().BehindLinks(path); }
    std::string TemporaryNameBeside(const std::string& path) override {
        return SystemFiles().TemporaryNameBeside(path);
    }
    void FlushFolder(const std::string& folder) override { SystemFiles().FlushFolder(folder); }
    std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) override;
    std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string& like,
                                      std::error_code& error) override;
    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) override;
    void Replace(const std::string& from, const std::string& to, std::error_code& error) override;
    void Delete(const std::string& path, std::error_code& error) override;
    void Move(const std::string& from, const std::string& to, std::error_code& error) override;
    std::vector<std::string> List(const std::string& folder, std::error_code& error) override;
    void CreateFolder(const std::string& path, std::error_code& error) override;

    /// Counts a call. @return whether it is the one to fail; then `error` is set.
    bool Fails(std::error_code& error);

private:
    std::unique_ptr<OpenFile> Wrapped(std::unique_ptr<OpenFile> file);

    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
