#pragma once

#include "base/FileName.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <map>
#include <optional>

namespace railwright::testing {

/// Files and folders held in memory, in force while it lives. Plain letters of their names are lower case.
class MemoryFiles final : public FileOperations {
    using Name = const std::string&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;
    using Kind = FileStatus::Kind;

public:
    using Bytes = std::vector<std::uint8_t>;

    /// Everything by its path: the bytes of a file, none for a folder.
    const std::map<std::string, std::optional<Bytes>>& All() const { return all; }
    /// @return the bytes of a file, null if there is none.
    const Bytes* Find(Name path) const {
        const auto found = all.find(Key(path));
        return found == all.end() || !found->second ? nullptr : &*found->second;
    }

    FileStatus Status(Name path) override {
        const Bytes* const file = Find(path);
        const Kind kind = file ? Kind::File : all.contains(Key(path)) ? Kind::Folder : Kind::Missing;
        return {kind, BaseName(path).starts_with('.'), true, file ? std::ssize(*file) : 0};
    }
    FileStatus ExactStatus(Name path) override { return Status(path); }
    std::string BehindLinks(Name path) override { return path; }
    std::string TemporaryNameBeside(Name path) override { return FolderOf(path) + ".railwright.tmp"; }
    void FlushFolder(Name) override {}
    Opened OpenToRead(Name path, Error error) override {
        return Fails(!Find(path), error) ? nullptr : std::make_unique<File>(*all[Key(path)]);
    }
    Opened OpenToOverwrite(Name path, Error error) override { return OpenToRead(path, error); }
    Opened OpenNew(Name path, Name, Error error) override {
        return Add(path, Bytes{}, error) ? OpenToRead(path, error) : nullptr;
    }
    void CreateFolder(Name path, Error error) override { Add(path, {}, error); }
    void Replace(Name from, Name to, Error error) override {
        if (!Fails(!Find(from) || Status(to).What == Kind::Folder, error))
            all.erase(Key(to)), Move(from, to, error);
    }
    void Move(Name from, Name to, Error error) override {
        const std::string start = Key(from);
        if (Fails(!all.contains(start), error) || !Add(to, {}, error))
            return;
        for (const auto& [path, bytes] : std::map(all))
            if (path == start || path.starts_with(start + '\\'))
                all.erase(path), all[Key(to) + path.substr(start.size())] = bytes;
    }
    void Delete(Name path, Error error) override {
        if (!Fails(!Find(path), error))
            all.erase(Key(path));
    }
    std::vector<std::string> List(Name folder, Error error) override {
        std::vector<std::string> names;
        Fails(Status(folder).What != Kind::Folder, error);
        for (const auto& [path, bytes] : all)
            if (FolderOf(path) == Key(folder) + '\\')
                names.push_back(BaseName(path));
        return names;
    }

private:
    struct File final : OpenFile {
        explicit File(Bytes& bytes) : All(bytes) {}
        std::size_t Read(std::span<std::uint8_t> into, Error) override {
            const auto part = std::span(All).subspan(At, std::min(into.size(), All.size() - At));
            std::ranges::copy(part, into.begin());
            return At += part.size(), part.size();
        }
        std::size_t Write(std::span<const std::uint8_t> bytes, Error) override {
            All.resize(std::max(All.size(), At + bytes.size()));
            std::ranges::copy(bytes, All.data() + At);
            return At += bytes.size(), bytes.size();
        }
        void CutOff(Error) override { All.resize(At); }
        void Flush(Error) override {}
        void Close(Error) override {}
        Bytes& All;
        std::size_t At = 0;
    };

    static std::string Key(Name path) {
        std::string key;
        for (std::size_t start = 0, end = 0; start < path.size(); start = end + 1) {
            end = std::min(path.find('\\', start), path.size());
            if (end > start && path.compare(start, end - start, ".") != 0)
                key += (key.empty() ? "" : "\\") + path.substr(start, end - start);
        }
        for (char& c : key)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
        return key;
    }
    /// Adds what is new and has a folder to lie in.
    bool Add(Name path, std::optional<Bytes> bytes, Error error) {
        const std::string above = FolderOf(Key(path));
        const bool isFree = above.empty() || Status(above).What == Kind::Folder;
        return !Fails(!isFree || !all.emplace(Key(path), std::move(bytes)).second, error);
    }
    static bool Fails(bool fails, Error error) {
        return fails && (error = std::make_error_code(std::errc::no_such_file_or_directory));
    }

    std::map<std::string, std::optional<Bytes>> all;
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
