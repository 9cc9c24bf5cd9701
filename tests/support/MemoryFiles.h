#pragma once

#include "base/FileName.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <map>

namespace railwright::testing {

/// Files and folders held in memory, in force while it lives. Names are the same in any case of plain
/// letters.
class MemoryFiles final : public FileOperations {
    using Name = const std::string&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;
    using Kind = FileStatus::Kind;

public:
    using Bytes = std::vector<std::uint8_t>;

    /// Puts a file in its place, with the folders above it. Nothing happens where something else stands.
    void Put(Name path, Bytes content) {
        std::error_code taken;
        for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1))
            Add(path.substr(0, end), nullptr, taken);
        Add(path, std::make_shared<Bytes>(std::move(content)), taken);
    }
    /// @return the bytes of a file, null if there is none.
    const Bytes* Find(Name path) const {
        const auto found = all.find(Clean(path));
        return found == all.end() ? nullptr : found->second.get();
    }
    /// @return the bytes of all files by their paths.
    std::map<std::string, Bytes> Contents() const {
        std::map<std::string, Bytes> contents;
        for (const auto& [path, content] : all)
            if (content)
                contents[path] = *content;
        return contents;
    }

    FileStatus Status(Name path) override {
        const Bytes* const file = Find(path);
        const Kind kind = file ? Kind::File : all.contains(Clean(path)) ? Kind::Folder : Kind::Missing;
        return {kind, BaseName(path).starts_with('.'), true, file ? std::ssize(*file) : 0};
    }
    FileStatus ExactStatus(Name path) override { return Status(path); }
    std::string BehindLinks(Name path) override { return path; }
    std::string TemporaryNameBeside(Name path) override { return FolderOf(path) + ".railwright.tmp"; }
    void FlushFolder(Name) override {}
    Opened OpenToRead(Name a, Error e) override {
        return Fails(!Find(a), e) ? nullptr : std::make_unique<File>(all[Clean(a)]);
    }
    Opened OpenToOverwrite(Name path, Error error) override { return OpenToRead(path, error); }
    Opened OpenNew(Name path, Name, Error error) override {
        Add(path, std::make_shared<Bytes>(), error);
        return error ? nullptr : OpenToRead(path, error);
    }
    void CreateFolder(Name path, Error error) override { Add(path, nullptr, error); }
    void Replace(Name from, Name to, Error error) override {
        if (!Fails(!Find(from) || Status(to).What == Kind::Folder, error))
            all.erase(Clean(to)), Move(from, to, error);
    }
    void Move(Name from, Name to, Error error) override {
        const std::string start = Clean(from), below = start + '\\';
        if (Fails(!all.contains(start), error) || !Add(to, nullptr, error))
            return;
        for (const auto& [path, content] : std::map(all))
            if (path == all.find(start)->first || Same(path.substr(0, below.size()), below))
                all.erase(path), all[Clean(to) + path.substr(start.size())] = content;
    }
    void Delete(Name path, Error error) override {
        if (!Fails(!Find(path), error))
            all.erase(Clean(path));
    }
    std::vector<std::string> List(Name folder, Error error) override {
        std::vector<std::string> names;
        Fails(Status(folder).What != Kind::Folder, error);
        for (const auto& [path, content] : all)
            if (Same(FolderOf(path), Clean(folder) + '\\'))
                names.push_back(BaseName(path));
        return names;
    }

private:
    struct File final : OpenFile {
        explicit File(std::shared_ptr<Bytes> content) : Content(std::move(content)) {}
        std::size_t Read(std::span<std::uint8_t> into, Error) override {
            const std::size_t count = std::min(into.size(), Content->size() - At);
            std::copy_n(Content->data() + At, count, into.data());
            return At += count, count;
        }
        std::size_t Write(std::span<const std::uint8_t> bytes, Error) override {
            Content->resize(std::max(Content->size(), At + bytes.size()));
            std::ranges::copy(bytes, Content->data() + At);
            return At += bytes.size(), bytes.size();
        }
        void CutOff(Error) override { Content->resize(At); }
        void Flush(Error) override {}
        void Close(Error) override {}
        std::shared_ptr<Bytes> Content;
        std::size_t At = 0;
    };
    struct Before {
        static char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; }
        bool operator()(Name a, Name b) const {
            return std::ranges::lexicographical_compare(a, b, {}, Lower, Lower);
        }
    };
    static bool Same(Name a, Name b) { return !Before()(a, b) && !Before()(b, a); }

    /// The path without what does not count in it.
    static std::string Clean(Name path) {
        std::string clean;
        for (std::size_t start = 0, end = 0; start < path.size(); start = end + 1) {
            end = std::min(path.find('\\', start), path.size());
            if (end > start && path.compare(start, end - start, ".") != 0)
                clean += (clean.empty() ? "" : "\\") + path.substr(start, end - start);
        }
        return clean;
    }
    /// Adds what is new and has a folder to lie in.
    bool Add(Name path, std::shared_ptr<Bytes> content, Error error) {
        const std::string clean = Clean(path), above = FolderOf(clean);
        return !Fails(all.contains(clean) || (!above.empty() && Status(above).What != Kind::Folder), error) &&
               all.emplace(clean, std::move(content)).second;
    }
    static bool Fails(bool fails, Error error) {
        error = fails ? std::make_error_code(std::errc::no_such_file_or_directory) : error;
        return fails;
    }

    std::map<std::string, std::shared_ptr<Bytes>, Before> all; // no bytes for a folder
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
