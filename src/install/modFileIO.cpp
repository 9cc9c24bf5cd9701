#include "install/modFileIO.h"

namespace railwright {

FileResult ReadFileBuffer(const FilePath& sFile, FileBuffer& buffer) {
    buffer.clear();
    if (sFile.IsEmpty() || !FileExists(sFile))
        return FileResult::Failure("no such file");
    return ReadWholeFile(sFile, buffer);
}

FileResult WriteFileBuffer(const FilePath& sFile, const FileBuffer& buffer) {
    return sFile.IsEmpty() ? FileResult::Failure("no file is named")
                           : WriteWholeFile(sFile, buffer, Leftovers::Keep);
}

} // namespace railwright
