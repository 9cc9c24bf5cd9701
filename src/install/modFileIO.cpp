#include "install/modFileIO.h"

namespace railwright {

FileResult ReadFileBuffer(const std::string& sFile, FileBuffer& buffer) {
    buffer.clear();
    if (sFile.empty() || !FileExists(sFile))
        return FileResult::Failure("no such file");
    return ReadWholeFile(sFile, buffer);
}

FileResult WriteFileBuffer(const std::string& sFile, const FileBuffer& buffer) {
    return sFile.empty() ? FileResult::Failure("no file is named") : WriteWholeFile(sFile, buffer);
}

} // namespace railwright
