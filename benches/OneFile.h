#pragma once

#include "platform/FileOperations.h"

#include <algorithm>

namespace railwright::bench {

/// While it lives, every name is that of one file in memory, and what is written goes nowhere: there remains
/// the program's own work, and a copy in the place of the system's reading.
class OneFile final : public FileOperations {
public:
    using Path = const std::string&;
    using Error = std::error_code&;
    explicit OneFile(std::span<const std::uint8_t> file) : bytes(file), inForce(*this) {}

    FileStatus Status(Path) override {
        return {FileStatus::Kind::File, false, true, static_cast<std::int64_t>(bytes.size())};
    }
    FileStatus ExactStatus(Path) override { return {}; }
    std::string BehindLinks(Path path) override { return path; }
    std::unique_ptr<OpenFile> OpenToRead(Path, Error) override { return std::make_unique<File>(bytes); }
    std::unique_ptr<OpenFile> OpenNew(Path, Path, Error) override { return std::make_unique<File>(bytes); }
    std::unique_ptr<OpenFile> OpenToOverwrite(Path, Error) override { return {}; }
    void Replace(Path, Path, Error) override {}
    void Move(Path, Path, Error) override {}
    void Delete(Path, Error) override {}
    void CreateFolder(Path, Error) override {}
    std::vector<std::string> List(Path, Error) override { return {}; }
    void FlushFolder(Path) override {}
    std::string TemporaryNameBeside(Path path) override { return path; }

private:
    struct File final : OpenFile {
        explicit File(std::span<const std::uint8_t> file) : rest(file) {}
        std::size_t Read(std::span<std::uint8_t> into, Error) override {
            const std::size_t size = std::min(into.size(), rest.size());
            std::copy_n(rest.begin(), size, into.begin());
            rest = rest.subspan(size);
            return size;
        }
        std::size_t Write(std::span<const std::uint8_t> given, Error) override { return given.size(); }
        void CutOff(Error) override {}
        void Flush(Error) override {}
        void Close(Error) override {}
        std::span<const std::uint8_t> rest;
    };

    std::span<const std::uint8_t> bytes;
    ScopedFileOperations inForce;
};

} // namespace railwright::bench
