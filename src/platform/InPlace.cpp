#include "platform/InPlace.h"

#include "platform/FileOperations.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace railwright {
namespace {

/// Returns the rest of an open file as content for another file.
FileContent RestOf(OpenFile& from) {
    return [&from](OpenFile& to, std::error_code& error) {
        std::array<std::uint8_t, 0x8000> piece{};
        std::size_t read = 1;
        while (read > 0 && !error) {
            read = from.Read(piece, error);
            WriteAll(to, std::span(piece).first(read), error);
        }
    };
}

constexpr std::string_view CopyStart = "railwright-copy-";

/// Returns the end of a copy's name.
std::string CopyEnd(const FileName& of) {
    constexpr std::size_t longest = 150; // bytes; keeps the whole name short enough
    const std::string& name = of.Native();
    return '-' + name.substr(name.size() - std::min(name.size(), longest));
}

/// A copy of the old content. Stays open so that no process treats it as abandoned.
struct Copy {
    FilePath Path;
    std::unique_ptr<OpenFile> File;

    void Delete() {
        File.reset();
        std::error_code ignored;
        Files().Delete(Path, ignored);
    }
};

/// @return whether the name is that of a copy of the file `of`, or of any file if `of` is empty.
bool IsCopy(std::string_view name, const FileName& of) {
    if (!name.starts_with(CopyStart))
        return false;
    name.remove_prefix(CopyStart.size());
    name.remove_prefix(std::min(name.find_first_not_of("0123456789"), name.size()));
    return of.Native().empty() ? name.starts_with('-') : name == CopyEnd(of);
}

/// Copies a file into a folder under a new name, then flushes it.
Copy CopyInto(const FilePath& folder, OpenFile& from, const FileName& name, std::error_code& error) {
    Copy copy;
    int number = 0;
    do {
        error.clear();
        copy.Path = folder / FileName(std::string(CopyStart) + std::to_string(++number) + CopyEnd(name));
        copy.File = Files().OpenCopy(copy.Path, error);
    } while (error == std::errc::file_exists);
    if (!copy.File)
        return copy;
    from.Rewind(error);
    if (!error)
        Fill(*copy.File, RestOf(from), error);
    if (!error)
        Files().FlushFolder(folder, error);
    if (error)
        copy.Delete();
    return copy;
}

void PutBack(OpenFile& copy, OpenFile& file, std::error_code& error) {
    copy.Rewind(error);
    if (!error)
        file.Rewind(error);
    if (!error)
        Fill(file, RestOf(copy), error);
}

} // namespace

FileResult OverwriteInPlace(const FilePath& path, const FileContent& content) {
    std::error_code error;
    const auto file = Files().OpenToOverwrite(path, error);
    if (error == std::errc::resource_unavailable_try_again)
        return FileResult::Failure("is being read or written by another program");
    if (!file)
        return FileResult::Failure("cannot be written: " + error.message());
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    const std::vector<FilePath> left = LeftCopies(path.Name());
    Copy copy;
    for (const FilePath& folder : Files().TemporaryFolders())
        if (error)
            copy = CopyInto(folder, *file, path.Name(), error);
    if (error)
        return FileResult::Failure("cannot be written, because it cannot be copied first: " +
                                   error.message());

    file->Rewind(error);
    if (!error)
        Fill(*file, content, error);
    FileResult result;
    result.OldKeptIn = left.empty() ? FilePath() : left.front();
    if (error) {
        result = FileResult::Failure("cannot be written: " + error.message());
        std::error_code restoring;
        PutBack(*copy.File, *file, restoring);
        if (restoring) {
            result.OldKeptIn = copy.Path;
            result.Reason += ", and its old content cannot be put back; it is in " + copy.Path.Shown();
            return result;
        }
    }
    copy.Delete();
    return result;
}

std::vector<FilePath> LeftCopies(const FileName& name) {
    std::vector<FilePath> left;
    for (const FilePath& folder : Files().TemporaryFolders()) {
        std::error_code ignored;
        for (const FileName& copy : Files().List(folder, ignored))
            if (IsCopy(copy.Native(), name) && Files().IsAbandoned(folder / copy))
                left.push_back(folder / copy);
    }
    return left;
}

} // namespace railwright
