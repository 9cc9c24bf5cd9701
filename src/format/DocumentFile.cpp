#include "format/DocumentFile.h"

#include "base/FileName.h"
#include "platform/FileOperations.h"

#include <new>

namespace railwright {

FileResult LoadDocumentFile(const FilePath& path, const DocumentFormat& format) {
    if (path.IsEmpty())
        return FileResult::Failure("no file is named");
    if (FileResult found = FindFile(path); !found)
        return found;
    if (!HasExtension(path.Native(), format.Extension))
        return FileResult::Failure("the name does not end in " + std::string(format.Extension));
    format.Clear();
    try {
        FileToRead opened;
        if (FileResult result = OpenWholeFile(path, opened); !result)
            return result;
        ChunkReader reader(*opened.File, opened.Length);
        if (reader.FileLength() == 0)
            return FileResult::Failure("the file is empty");
        if (reader.Tag() != format.Tag)
            return FileResult::Failure("the file does not begin with the tag " + std::string(format.Tag));
        format.Read(reader);
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
