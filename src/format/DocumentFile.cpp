#include "format/DocumentFile.h"

#include "base/FileName.h"

namespace railwright {

FileResult LoadDocumentFile(const std::string& path, const DocumentKind& kind) {
    if (path.empty())
        return FileResult::Failure("no file is named");
    if (!FileExists(path))
        return FileResult::Failure("no such file");
    if (!HasExtension(path, kind.Extension))
        return FileResult::Failure("the name does not end in " + std::string(kind.Extension));
    kind.Clear();
    FileBytes bytes;
    if (FileResult read = ReadWholeFile(path, 1, bytes); !read)
        return read;
    try {
        ChunkReader reader(bytes);
        if (reader.FileLength() == 0)
            return FileResult::Failure("the file is empty");
        if (reader.Tag() != kind.Tag)
            return FileResult::Failure("the file does not begin with the tag " + std::string(kind.Tag));
        kind.Read(reader);
        return {};
    } catch (const BrokenFile& broken) {
        kind.Clear();
        return FileResult::Failure(broken.Reason, broken.Byte);
    }
}

FileResult SaveDocumentFile(const std::string& path, const DocumentKind& kind, const FileBytes& bytes) {
    const bool complete = HasExtension(path, kind.Extension);
    return WriteWholeFile(complete ? path : path + std::string(kind.Extension), bytes);
}

} // namespace railwright
