#pragma once

#include "base/FileName.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <map>
#include <optional>

namespace railwright::fuzz {

/// Files and folders held in memory, in force while it lives. Plain letters of their names are lower case.
class MemoryFiles final : public FileOperations {
    using Name = const std::string&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;
    using Kind = FileStatus::Kind;

public:
    using Bytes = std::vector<std::uint8_t>;
    /// Everything by its path: the bytes of a file, none for a folder.
    std::map<std::string, std::optional<Bytes>> All;
    /// @return the bytes of a file, null if there is none.
    const Bytes* Find(Name path) const {
        const auto found = All.find(Key(path));
        return found == All.end() || !found->second ? nullptr : &*found->second;
    }

    FileStatus Status(Name path) override {
        const Bytes* const file = Find(path);
        const Kind kind = file ? Kind::File : All.contains(Key(path)) ? Kind::Folder : Kind::Missing;
        return {kind, BaseName(path).starts_with('.'), true, file ? std::ssize(*file) : 0};
    }
    FileStatus ExactStatus(Name path) override { return Status(path); }
    std::string BehindLinks(Name path) override { return path; }
    std::string TemporaryNameBeside(Name path) override { return FolderOf(path) + ".railwright.tmp"; }
    void FlushFolder(Name) override {}
    Opened OpenToRead(Name path, Error error) override {
        return Fails(!Find(path), error) ? nullptr : std::make_unique<File>(*All[Key(path)]);
    }
    Opened OpenToOverwrite(Name path, Error error) override { return OpenToRead(path, error); }
    Opened OpenNew(Name path, Name, Error error) override {
        return Add(path, Bytes{}, error) ? OpenToRead(path, error) : nullptr;
    }
    void CreateFolder(Name path, Error error) override { Add(path, {}, error); }
    void Replace(Name from, Name to, Error error) override { All.erase(Key(to)), Move(from, to, error); }
    void Move(Name from, Name to, Error error) override {
        const std::string start = Key(from);
        if (Fails(!All.contains(start), error) || !Add(to, {}, error))
            return;
        for (const auto& [path, bytes] : std::map(All))
            if (path == start || path.starts_with(start + '\\'))
                All.erase(path), All[Key(to) + path.substr(start.size())] = bytes;
    }
    void Delete(Name path, Error error) override { Fails(All.erase(Key(path)) == 0, error); }
    std::vector<std::string> List(Name folder, Error error) override {
        std::vector<std::string> names;
        Fails(Status(folder).What != Kind::Folder, error);
        for (const auto& [path, bytes] : All)
            if (FolderOf(path) == Key(folder) + '\\')
                names.push_back(BaseName(path));
        return names;
    }

private:
    struct File final : OpenFile {
        explicit File(Bytes& bytes) : Content(bytes) {}
        /// Few bytes at a time, so that every record comes to lie across two of them.
        std::size_t Read(std::span<std::uint8_t> into, Error) override {
            const std::size_t count = std::min({into.size(), Content.size() - At, std::size_t{251}});
            std::ranges::copy(std::span(Content).subspan(At, count), into.begin());
            return At += count, count;
        }
        std::size_t Write(std::span<const std::uint8_t> bytes, Error) override {
            Content.resize(std::max(Content.size(), At + bytes.size()));
            std::ranges::copy(bytes, Content.data() + At);
            return At += bytes.size(), bytes.size();
        }
        void CutOff(Error) override { Content.resize(At); }
        void Flush(Error) override {}
        void Close(Error) override {}
        Bytes& Content;
        std::size_t At = 0;
    };

    /// The path in lower case, without what does not count in it.
    static std::string Key(Name path) {
        std::string key;
        for (const char c : path + '\\') {
            key += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
            if (key.ends_with("\\\\") || key.ends_with("\\.\\"))
                key.resize(key.rfind('\\', key.size() - 2) + 1);
        }
        return key.substr(0, key.size() - 1);
    }
    /// Adds what is new and has a folder to lie in.
    bool Add(Name path, std::optional<Bytes> bytes, Error error) {
        const std::string above = FolderOf(Key(path));
        return !Fails((!above.empty() && Status(above).What != Kind::Folder) ||
                          !All.emplace(Key(path), std::move(bytes)).second,
                      error);
    }
    static bool Fails(bool fails, Error error) {
        return fails && (error = std::make_error_code(std::errc::no_such_file_or_directory));
    }

    ScopedFileOperations scope{*this};
};

} // namespace railwright::fuzz
