#include "platform/InPlace.h"

#include "platform/FileOperations.h"

#include <array>

namespace railwright {
namespace {

/// The rest of an open file as the content of another.
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

/// Copies the rest of a file to one of a new name in that folder, and to the disk.
/// @return its path.
FilePath CopyInto(const FilePath& folder, OpenFile& from, const std::string& name, std::error_code& error) {
    constexpr std::size_t longest = 150; // there is always room for the rest of a name
    FilePath path;
    std::unique_ptr<OpenFile> copy;
    int number = 0;
    do {
        error.clear();
        path = folder / FileName("railwright-copy-" + std::to_string(++number) + '-' +
                                 name.substr(name.size() - std::min(name.size(), longest)));
        copy = Files().OpenCopy(path, error);
    } while (error == std::errc::file_exists);
    if (!copy)
        return path;
    from.Rewind(error);
    if (!error)
        Fill(*copy, RestOf(from), error);
    if (!error) {
        Files().FlushFolder(folder);
        return path;
    }
    copy.reset();
    std::error_code ignored;
    Files().Delete(path, ignored);
    return path;
}

void PutBack(const FilePath& copy, OpenFile& file, std::error_code& error) {
    const auto old = Files().OpenToRead(copy, error);
    if (old)
        file.Rewind(error);
    if (!error)
        Fill(file, RestOf(*old), error);
}

} // namespace

FileResult OverwriteInPlace(const FilePath& path, const FileContent& content) {
    std::error_code error;
    const auto file = Files().OpenToOverwrite(path, error);
    if (error == std::errc::resource_unavailable_try_again)
        return FileResult::Failure("is being written by another program");
    if (!file)
        return FileResult::Failure("cannot be written: " + error.message());
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    FilePath copy;
    for (const FilePath& folder : Files().TemporaryFolders())
        if (error)
            copy = CopyInto(folder, *file, path.Name().Native(), error);
    if (error)
        return FileResult::Failure("cannot be written, because it cannot be copied first: " +
                                   error.message());

    file->Rewind(error);
    if (!error)
        Fill(*file, content, error);
    FileResult result;
    if (error) {
        result = FileResult::Failure("cannot be written: " + error.message());
        std::error_code restoring;
        PutBack(copy, *file, restoring);
        if (restoring) {
            result.OldKeptIn = copy;
            result.Reason += ", and its old content cannot be put back; it is in " + copy.Shown();
            return result;
        }
    }
    std::error_code ignored;
    Files().Delete(copy, ignored);
    return result;
}

} // namespace railwright
