#include "format/DocumentFile.h"

#include "base/FileName.h"
#include "platform/FileOperations.h"

#include <new>

namespace railwright {

FileResult LoadDocumentFile(const FilePath& path, const DocumentFormat& format) {
    UnknownChunks unknown;
    const FileResult found = FindFile(path);
    return found ? ReadDocumentFile(path, format, unknown) : found;
}

FileResult ReadDocumentFile(const FilePath& path, const DocumentFormat& format, UnknownChunks& unknown) {
    if (!HasExtension(path.Native(), format.Extension))
        return FileResult::Failure("the name does not end in " + std::string(format.Extension));
    try {
        FileToRead opened;
        if (FileResult result = OpenWholeFile(path, opened); !result)
            return result;
        format.Clear();
        ChunkReader reader(*opened.File, opened.Length);
        if (reader.FileLength() == 0)
            return FileResult::Failure("the file is empty", 0);
        if (reader.Tag() != format.Tag)
            return FileResult::Failure("the file does not begin with the tag " + std::string(format.Tag), 0);
        format.Read(reader);
        unknown = reader.Unknown();
        return {};
    } catch (const BrokenFile& broken) {
        format.Clear();
        return FileResult::Failure(broken.Reason, broken.Byte);
    } catch (const std::bad_alloc&) {
        format.Clear();
        return FileResult::Failure("there is not enough memory for the document");
    }
}

FileResult SaveDocumentFile(const FilePath& path, const DocumentFormat& format, std::int64_t length,
                            const std::function<void(ChunkWriter&)>& write) {
    if (!path.NamesFile())
        return FileResult::Failure("names no file");
    if (length > LongestFile)
        return FileResult::Failure("the document is too large, a file can hold 2 GiB");
    const bool complete = HasExtension(path.Native(), format.Extension);
    return WriteWholeFile(complete ? path : path.WithEnding(format.Extension),
                          [&](OpenFile& file, std::error_code& error) {
                              ChunkWriter writer(file, error);
                              write(writer);
                              writer.Flush();
                          });
}

} // namespace railwright
