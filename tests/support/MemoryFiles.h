#pragma once

#include "base/FileName.h"
#include "platform/CodePage.h"
#include "platform/FileOperations.h"

#include <algorithm>
#include <map>

namespace railwright::testing {

/// Files and folders held in memory, in force while it lives. Names are the same in any case of letters.
class MemoryFiles final : public FileOperations {
    using Name = const std::string&;
    using Error = std::error_code&;
    using Opened = std::unique_ptr<OpenFile>;

public:
    using Bytes = std::vector<std::uint8_t>;
    struct Entry {
        std::string Path;
        std::shared_ptr<Bytes> Content; // none for a folder
    };

    /// Puts a file in its place, with the folders above it. Nothing happens where something else stands.
    void Put(Name path, Bytes content) {
        std::error_code error;
        for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1))
            CreateFolder(path.substr(0, end), error);
        error.clear();
        if (const Opened file = OpenNew(path, "", error); file)
            file->Write(content, error);
    }
    /// @return the bytes of a file, null if there is none.
    const Bytes* Find(Name path) const {
        const auto found = entries.find(Key(path));
        return found == entries.end() ? nullptr : found->second.Content.get();
    }
    /// All that there is, by paths in lower case.
    const std::map<std::string, Entry>& Entries() const { return entries; }

    FileStatus Status(Name path) override {
        const auto found = entries.find(Key(path));
        if (found == entries.end())
            return {};
        const auto& [made, content] = found->second;
        return {content ? FileStatus::Kind::File : FileStatus::Kind::Folder, BaseName(made).starts_with('.'),
                true, content ? static_cast<std::int64_t>(content->size()) : 0};
    }
    FileStatus ExactStatus(Name path) override { return Status(path); }
    std::string BehindLinks(Name path) override { return path; }
    std::string TemporaryNameBeside(Name path) override { return FolderOf(path) + ".railwright.tmp"; }
    void FlushFolder(Name) override {}
    Opened OpenToRead(Name path, Error error) override {
        const auto found = entries.find(Key(path));
        const bool isFile = found != entries.end() && found->second.Content;
        return Fails(!isFile, error) ? nullptr : std::make_unique<File>(found->second.Content);
    }
    Opened OpenToOverwrite(Name path, Error error) override { return OpenToRead(path, error); }
    Opened OpenNew(Name path, Name, Error error) override {
        return Add(path, std::make_shared<Bytes>(), error) ? OpenToRead(path, error) : nullptr;
    }
    void CreateFolder(Name path, Error error) override { Add(path, nullptr, error); }
    void Replace(Name from, Name to, Error error) override {
        if (!Fails(!Find(from) || (!Find(to) && entries.contains(Key(to))), error) && Key(from) != Key(to))
            entries.erase(Key(to)), Move(from, to, error);
    }
    void Move(Name from, Name to, Error error) override {
        const std::string start = Key(from);
        if (Fails(!entries.contains(start) || entries.contains(Key(to)) || !HasFolder(Key(to)), error))
            return;
        const auto all = entries;
        for (const auto& [key, entry] : all)
            if (key == start || key.starts_with(start + '\\')) {
                entries.erase(key);
                const std::string path = to + entry.Path.substr(std::min(from.size(), entry.Path.size()));
                entries[Key(to) + key.substr(start.size())] = {path, entry.Content};
            }
    }
    void Delete(Name path, Error error) override {
        if (!Fails(!Find(path), error))
            entries.erase(Key(path));
    }
    std::vector<std::string> List(Name folder, Error error) override {
        std::vector<std::string> names;
        Fails(!entries.contains(Key(folder)) || Find(folder), error);
        for (const auto& [key, entry] : entries)
            if (FolderOf(key) == Key(folder) + '\\')
                names.push_back(BaseName(entry.Path));
        return names;
    }

private:
    struct File final : OpenFile {
        explicit File(std::shared_ptr<Bytes> content) : Content(std::move(content)) {}
        std::size_t Read(std::span<std::uint8_t> into, Error) override {
            const std::size_t count = std::min(into.size(), Content->size() - At);
            std::copy_n(Content->begin() + static_cast<std::ptrdiff_t>(At), count, into.begin());
            At += count;
            return count;
        }
        std::size_t Write(std::span<const std::uint8_t> bytes, Error) override {
            Content->resize(std::max(Content->size(), At + bytes.size()));
            std::copy(bytes.begin(), bytes.end(), Content->begin() + static_cast<std::ptrdiff_t>(At));
            At += bytes.size();
            return bytes.size();
        }
        void CutOff(Error) override { Content->resize(At); }
        void Flush(Error) override {}
        void Close(Error) override {}
        std::shared_ptr<Bytes> Content;
        std::size_t At = 0;
    };

    /// The path in lower case, without what does not count in it.
    static std::string Key(Name path) {
        const bool plain = std::all_of(path.begin(), path.end(), [](char c) { return c >= 0; });
        const text characters = plain ? path : FromUtf8(path, SystemCodePage());
        const bool holds = plain || ToUtf8(characters, SystemCodePage()) == path;
        const std::string folded =
            holds ? ToUtf8(LowerCase(characters, SystemCodePage()), SystemCodePage()) : path;
        std::string key;
        for (std::size_t start = 0, end = 0; start < folded.size(); start = end + 1) {
            end = std::min(folded.find('\\', start), folded.size());
            if (const std::string part = folded.substr(start, end - start); !part.empty() && part != ".")
                key += (key.empty() ? "" : "\\") + part;
        }
        return key;
    }
    bool HasFolder(Name key) const {
        const auto above = entries.find(key.substr(0, std::min(key.rfind('\\'), key.size())));
        return key.find('\\') == std::string::npos || (above != entries.end() && !above->second.Content);
    }
    bool Add(Name path, std::shared_ptr<Bytes> content, Error error) {
        return !Fails(entries.contains(Key(path)) || !HasFolder(Key(path)), error) &&
               entries.emplace(Key(path), Entry{path, std::move(content)}).second;
    }
    static bool Fails(bool fails, Error error) {
        error = fails ? std::make_error_code(std::errc::no_such_file_or_directory) : error;
        return fails;
    }

    std::map<std::string, Entry> entries;
    ScopedFileOperations scope{*this};
};

} // namespace railwright::testing
