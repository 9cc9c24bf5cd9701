#include "install/modFileIO.h"

#include "platform/FileOperations.h"

namespace railwright {

FileResult ReadFileBuffer(const FilePath& sFile, FileBuffer& buffer) {
    buffer.clear();
    if (FileResult found = FindFile(sFile); !found)
        return found;
    return ReadWholeFile(sFile, buffer);
}

FileResult WriteFileBuffer(const FilePath& sFile, const FileBuffer& buffer, const FilePath& model) {
    return sFile.IsEmpty() ? FileResult::Failure("no file is named")
                           : WriteWholeFile(sFile, buffer, Leftovers::Keep, model);
}

bool Exists(const FilePath& path, std::error_code& unknown) {
    const FileStatus status = Files().Status(path);
    unknown = status.Error ? status.Error : unknown;
    return status.IsLink || status.What != FileStatus::Kind::Missing;
}

} // namespace railwright
