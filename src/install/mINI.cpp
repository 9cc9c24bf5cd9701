#include "install/mINI.h"

#include "install/modFileIO.h"

namespace railwright {

FileResult ReadTextFile(const FilePath& sFile, text& sText) {
    FileBuffer bytes;
    FileResult read = ReadFileBuffer(sFile, bytes);
    sText.assign(bytes.begin(), bytes.end());
    return read;
}

FileResult WriteTextFile(const FilePath& sFile, const text& sText) {
    const text closed = sText + "\r\n";
    return WriteFileBuffer(sFile, FileBuffer(closed.begin(), closed.end()));
}

} // namespace railwright
