#include "format/DocumentFile.h"

#include "base/FileName.h"

#include <new>

namespace railwright {
namespace {

/// Reads no more than `most` bytes of a file that has to begin as a document of that kind does.
FileResult ReadOfKind(const std::string& path, const DocumentKind& kind, std::int64_t most,
                      FileBytes& bytes) {
    if (FileResult read = ReadBeginning(path, most, 1, bytes); !read)
        return read;
    ChunkReader reader(bytes);
    if (reader.FileLength() == 0)
        return FileResult::Failure("the file is empty");
    if (reader.Tag() != kind.Tag)
        return FileResult::Failure("the file does not begin with the tag " + std::string(kind.Tag));
    return {};
}

} // namespace

FileResult LoadDocumentFile(const std::string& path, const DocumentKind& kind) {
    if (path.empty())
        return FileResult::Failure("no file is named");
    if (!FileExists(path))
        return FileResult::Failure("no such file");
    if (!HasExtension(path, kind.Extension))
        return FileResult::Failure("the name does not end in " + std::string(kind.Extension));
    kind.Clear();
    try {
        FileBytes bytes;
        // By its tag a large file of something else is refused before it takes any memory.
        for (const std::int64_t most : {static_cast<std::int64_t>(kind.Tag.size()), LongestFile})
            if (FileResult read = ReadOfKind(path, kind, most, bytes); !read)
                return read;
        ChunkReader reader(bytes);
        reader.Tag();
        kind.Read(reader);
        return {};
    } catch (const BrokenFile& broken) {
        kind.Clear();
        return FileResult::Failure(broken.Reason, broken.Byte);
    } catch (const std::bad_alloc&) {
        kind.Clear();
        return FileResult::Failure("there is not enough memory for the document");
    }
}

FileResult SaveDocumentFile(const std::string& path, const DocumentKind& kind, std::int64_t length,
                            const std::function<void(ChunkWriter&)>& write) {
    if (length > LongestFile)
        return FileResult::Failure("the document is too large, a file can hold 2 GiB");
    try {
        FileBytes bytes(static_cast<std::size_t>(length));
        ChunkWriter writer(bytes);
        write(writer);
        const bool complete = HasExtension(path, kind.Extension);
        return WriteWholeFile(complete ? path : path + std::string(kind.Extension), bytes);
    } catch (const std::bad_alloc&) {
        return FileResult::Failure("there is not enough memory to put the file together");
    }
}

} // namespace railwright
