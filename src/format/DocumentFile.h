#pragma once

#include "format/ChunkReader.h"
#include "format/ChunkWriter.h"
#include "platform/WholeFile.h"

#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace railwright {

/// The form of the files of one kind of document, and what its module does with one.
struct DocumentFormat {
    /// With its dot and in lower case.
    std::string_view Extension;
    /// The tag that the file begins with, in upper case.
    std::string_view Tag;
    /// Makes the document in hand empty.
    void (*Clear)();
    /// Fills the document from a file; the reader stands behind the tag. Throws BrokenFile.
    void (*Read)(ChunkReader& reader);
};

/// Loads a document. If the name has another extension, or the file cannot be opened, the
/// document stays as it was. If the file cannot be read or is broken, the document is empty. Hidden files
/// count as missing.
FileResult LoadDocumentFile(const FilePath& path, const DocumentFormat& format);

/// Loads a document like LoadDocumentFile, but from a hidden file as well.
/// @param unknown takes the chunks of the file that are not in the document.
FileResult ReadDocumentFile(const FilePath& path, const DocumentFormat& format, UnknownChunks& unknown);

/// The longest file that the format can hold, in bytes.
inline constexpr std::int64_t LongestFile = std::numeric_limits<FilePos>::max();

/// Stores a document under a name, to which the format's extension is added if it has not got it already.
/// @param length of the file in bytes, as counted; beyond LongestFile it is refused.
/// @param write stores as many bytes; it does not throw.
FileResult SaveDocumentFile(const FilePath& path, const DocumentFormat& format, std::int64_t length,
                            const std::function<void(ChunkWriter&)>& write);

} // namespace railwright
