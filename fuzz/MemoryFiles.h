#pragma once

#include "platform/FileOperations.h"

#include <algorithm>
#include <map>
#include <optional>

namespace railwright::fuzz {

/// Files and folders in memory, installed until destruction. Names are case-sensitive.
class MemoryFiles final : public FileOperations {
    using Name = const FilePath&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;
    using Kind = FileStatus::Kind;

public:
    using Bytes = std::vector<std::uint8_t>;
    /// All entries by path: the bytes of a file, nothing for a folder.
    std::map<FilePath, std::optional<Bytes>> All;
    /// @return the bytes of a file, or null if there is none.
    const Bytes* Find(Name path) const {
        const auto found = All.find(path);
        return found == All.end() || !found->second ? nullptr : &*found->second;
    }

    FileStatus Status(Name path) override {
        const Bytes* const file = Find(path);
        const Kind kind = file ? Kind::File : All.contains(path) ? Kind::Folder : Kind::Missing;
        return {kind, path.Name().Native().starts_with('.'), true, file ? std::ssize(*file) : 0};
    }
    FilePath BehindLinks(Name path, Error) override { return path; }
    void FlushFolder(Name, Error) override {}
    bool IsAbandoned(Name) override { return false; }
    void DeleteLeftovers(Name) override {}
    std::vector<FilePath> TemporaryFolders() override { return {}; }
    Opened OpenToRead(Name path, Error error) override {
        return Fails(!Find(path), error) ? nullptr : std::make_unique<File>(*All[path]);
    }
    Opened OpenToOverwrite(Name path, Error error) override { return OpenToRead(path, error); }
    Opened OpenCopy(Name path, Error error) override {
        return Add(path, Bytes{}, error) ? OpenToRead(path, error) : nullptr;
    }
    std::unique_ptr<NewFile> OpenNew(Name path, Name, Error error) override {
        const FilePath above = path.Folder();
        const bool nowhere = !above.IsEmpty() && Status(above).What != Kind::Folder;
        return Fails(nowhere, error) ? nullptr : std::make_unique<New>(*this, path);
    }
    void CreateFolder(Name path, Error error) override { Add(path, {}, error); }
    void Move(Name from, Name to, Error error) override {
        // Only files are ever moved.
        if (!Fails(!Find(from), error) && Add(to, {}, error))
            All[to] = std::move(All.extract(from).mapped());
    }
    void Delete(Name path, Error error) override { Fails(All.erase(path) == 0, error); }
    std::vector<FileName> List(Name folder, Error error) override {
        std::vector<FileName> names;
        Fails(Status(folder).What != Kind::Folder, error);
        const std::string inside = folder.AsFolder().Native();
        for (auto entry = All.lower_bound(folder.AsFolder());
             entry != All.end() && entry->first.Native().starts_with(inside); ++entry)
            if (entry->first.Native().find(PathSeparator(), inside.size()) == std::string::npos)
                names.push_back(entry->first.Name());
        return names;
    }

private:
    struct File final : OpenFile {
        explicit File(Bytes& bytes) : Content(bytes) {}
        /// Reads few bytes at a time, so that every record is split between two reads.
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
        void Rewind(Error) override { At = 0; }
        std::int64_t Length(Error) override { return std::ssize(Content); }
        Bytes& Content;
        std::size_t At = 0;
    };
    struct New final : NewFile {
        New(MemoryFiles& files, FilePath path) : All(files), Path(std::move(path)) {}
        OpenFile& Content() override { return Open; }
        void TakePlace(Error) override { All.All[Path] = Written; }
        void KeepAs(Name path, Error) override { All.All[path] = Written; }
        MemoryFiles& All;
        FilePath Path;
        Bytes Written;
        File Open{Written};
    };

    /// Adds a new entry whose folder exists.
    bool Add(Name path, std::optional<Bytes> bytes, Error error) {
        const FilePath above = path.Folder();
        return !Fails((!above.IsEmpty() && Status(above).What != Kind::Folder) ||
                          !All.emplace(path, std::move(bytes)).second,
                      error);
    }
    static bool Fails(bool fails, Error error) {
        return fails && (error = std::make_error_code(std::errc::no_such_file_or_directory));
    }

    ScopedFileOperations scope{*this};
};

} // namespace railwright::fuzz
