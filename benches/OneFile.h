#pragma once

#include "platform/FileOperations.h"

#include <algorithm>

namespace railwright::bench {

/// Until destruction, every name refers to one file in memory, and written bytes are discarded. This leaves
/// the program's own work, and a copy instead of the system's read.
class OneFile final : public FileOperations {
public:
    using Path = const FilePath&;
    using Error = std::error_code&;
    explicit OneFile(std::span<const std::uint8_t> file) : bytes(file), inForce(*this) {}

    FileStatus Status(Path) override {
        return {FileStatus::Kind::File, false, true, static_cast<std::int64_t>(bytes.size())};
    }
    FilePath BehindLinks(Path path, Error) override { return path; }
    std::unique_ptr<OpenFile> OpenToRead(Path, Error) override { return std::make_unique<File>(bytes); }
    std::unique_ptr<NewFile> OpenNew(Path, Path, Error) override { return std::make_unique<New>(bytes); }
    std::unique_ptr<OpenFile> OpenCopy(Path, Error) override { return {}; }
    bool IsAbandoned(Path) override { return false; }
    std::unique_ptr<OpenFile> OpenToOverwrite(Path, Error) override { return {}; }
    void Move(Path, Path, Error) override {}
    void Delete(Path, Error) override {}
    void CreateFolder(Path, Error) override {}
    std::vector<FileName> List(Path, Error) override { return {}; }
    void FlushFolder(Path, Error) override {}
    void DeleteLeftovers(Path) override {}
    std::vector<FilePath> TemporaryFolders() override { return {}; }

private:
    struct File final : OpenFile {
        explicit File(std::span<const std::uint8_t> file) : rest(file), size(std::ssize(file)) {}
        std::size_t Read(std::span<std::uint8_t> into, Error) override {
            const std::size_t count = std::min(into.size(), rest.size());
            std::copy_n(rest.begin(), count, into.begin());
            rest = rest.subspan(count);
            return count;
        }
        std::size_t Write(std::span<const std::uint8_t> given, Error) override { return given.size(); }
        void CutOff(Error) override {}
        void Flush(Error) override {}
        void Rewind(Error) override {}
        std::int64_t Length(Error) override { return size; }
        std::span<const std::uint8_t> rest;
        std::int64_t size;
    };
    struct New final : NewFile {
        explicit New(std::span<const std::uint8_t> file) : open(file) {}
        OpenFile& Content() override { return open; }
        void TakePlace(Error) override {}
        void KeepAs(Path, Error) override {}
        File open;
    };

    std::span<const std::uint8_t> bytes;
    ScopedFileOperations inForce;
};

} // namespace railwright::bench
