#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <utility>

namespace railwright::testing {
namespace {

class MemoryFile final : public OpenFile {
public:
    explicit MemoryFile(std::vector<unsigned char>& bytes) : content(bytes) {}

    std::size_t Read(std::span<std::uint8_t> into, std::error_code&) override {
        const std::size_t size = std::min(into.size(), content.size() - pos);
        std::copy_n(content.data() + pos, size, into.data());
        pos += size;
        return size;
    }
    std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code&) override {
        content.resize(std::max(content.size(), pos + bytes.size()));
        std::copy(bytes.begin(), bytes.end(), content.data() + pos);
        pos += bytes.size();
        return bytes.size();
    }
    void CutOff(std::error_code&) override { content.resize(pos); }
    void Flush(std::error_code&) override {}
    void Close(std::error_code&) override {}

private:
    std::vector<unsigned char>& content;
    std::size_t pos = 0;
};

} // namespace

FileStatus MemoryFiles::Status(const std::string& path) {
    const auto found = Content.find(path);
    if (found == Content.end())
        return {};
    return {FileStatus::Kind::File, false, true, static_cast<std::int64_t>(found->second.size())};
}

std::unique_ptr<OpenFile> MemoryFiles::OpenToRead(const std::string& path, std::error_code& error) {
    return OpenToOverwrite(path, error);
}

std::unique_ptr<OpenFile> MemoryFiles::OpenNew(const std::string& path, const std::string&,
                                               std::error_code&) {
    return std::make_unique<MemoryFile>(Content[path]);
}

std::unique_ptr<OpenFile> MemoryFiles::OpenToOverwrite(const std::string& path, std::error_code& error) {
    const auto found = Content.find(path);
    if (found != Content.end())
        return std::make_unique<MemoryFile>(found->second);
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    return nullptr;
}

void MemoryFiles::Replace(const std::string& from, const std::string& to, std::error_code&) {
    Content[to] = std::exchange(Content[from], {});
    Content.erase(from);
}

} // namespace railwright::testing
