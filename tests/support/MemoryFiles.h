#pragma once

#include "platform/FileOperations.h"

#include <map>
#include <string>
#include <vector>

namespace railwright::testing {

/// Files that lie in memory, for tests that load or save thousands of them. While it lives it is in force.
class MemoryFiles final : public FileOperations {
public:
    /// The files by name.
    std::map<std::string, std::vector<unsigned char>> Content;

    FileStatus Status(const std::string& path) override;
    FileStatus ExactStatus(const std::string& path) override { return Status(path); }
    std::string BehindLinks(const std::string& path) override { return path; }
    std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) override;
    std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string& like,
                                      std::error_code& error) override;
    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) override;
    void Replace(const std::string& from, const std::string& to, std::error_code& error) override;
    void Delete(const std::string& path, std::error_code&) override { Content.erase(path); }
    void Move(const std::string& from, const std::string& to, std::error_code& error) override {
        Replace(from, to, error);
    }
    std::vector<std::string> List(const std::string&, std::error_code&) override { return {}; }
    void CreateFolder(const std::string&, std::error_code&) override {}
    void FlushFolder(const std::string&) override {}
    std::string TemporaryNameBeside(const std::string& path) override { return path + ".tmp"; }

private:
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
