#pragma once

#include "platform/FileOperations.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace railwright::bench {

/// While it lives, every name is that of one file in memory, and what is written goes nowhere: what remains
/// of loading and saving is the program's own work, and the copy that stands for the system's reading.
class MemoryFiles final : public FileOperations {
public:
    explicit MemoryFiles(std::span<const std::uint8_t> file) : bytes(file), inForce(*this) {}

    FileStatus Status(const std::string&) override {
        return {FileStatus::Kind::File, false, true, static_cast<std::int64_t>(bytes.size())};
    }
    FileStatus ExactStatus(const std::string&) override { return {}; }
    std::string BehindLinks(const std::string& path) override { return path; }
    std::unique_ptr<OpenFile> OpenToRead(const std::string&, std::error_code&) override {
        return std::make_unique<File>(bytes);
    }
    std::unique_ptr<OpenFile> OpenNew(const std::string&, const std::string&, std::error_code&) override {
        return std::make_unique<File>(bytes);
    }
    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string&, std::error_code&) override { return {}; }
    void Replace(const std::string&, const std::string&, std::error_code&) override {}
    void Move(const std::string&, const std::string&, std::error_code&) override {}
    void Delete(const std::string&, std::error_code&) override {}
    void CreateFolder(const std::string&, std::error_code&) override {}
    std::vector<std::string> List(const std::string&, std::error_code&) override { return {}; }
    void FlushFolder(const std::string&) override {}
    std::string TemporaryNameBeside(const std::string& path) override { return path; }

private:
    struct File final : OpenFile {
        explicit File(std::span<const std::uint8_t> file) : rest(file) {}
        std::size_t Read(std::span<std::uint8_t> into, std::error_code&) override {
            const std::size_t size = std::min(into.size(), rest.size());
            std::memcpy(into.data(), rest.data(), size);
            rest = rest.subspan(size);
            return size;
        }
        std::size_t Write(std::span<const std::uint8_t> given, std::error_code&) override {
            return given.size();
        }
        void CutOff(std::error_code&) override {}
        void Flush(std::error_code&) override {}
        void Close(std::error_code&) override {}
        std::span<const std::uint8_t> rest;
    };

    std::span<const std::uint8_t> bytes;
    ScopedFileOperations inForce;
};

} // namespace railwright::bench
