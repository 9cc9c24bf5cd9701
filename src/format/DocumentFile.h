#pragma once

#include "format/ChunkReader.h"
#include "format/ChunkWriter.h"
#include "platform/WholeFile.h"

#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace railwright {

/// The file format of one kind of document, and the functions of its module.
struct DocumentFormat {
    /// With its dot, in lower case.
    std::string_view Extension;
    /// The first tag of the file, in upper case.
    std::string_view Tag;
    /// Empties the open document.
    void (*Clear)();
    /// Fills the open document from a file whose first tag was just read. Throws BrokenFile.
    void (*Read)(ChunkReader& reader);
};

/// Loads a document. If the extension is wrong or the file cannot be opened, the document is unchanged. After
/// any other failure it is empty. Hidden files count as missing.
FileResult LoadDocumentFile(const FilePath& path, const DocumentFormat& format);

/// Loads a document like LoadDocumentFile, but accepts a hidden file too.
/// @param unknown receives the chunks that the document cannot hold.
FileResult ReadDocumentFile(const FilePath& path, const DocumentFormat& format, UnknownChunks& unknown);

/// The longest file that the format can hold, in bytes.
inline constexpr std::int64_t LongestFile = std::numeric_limits<FilePos>::max();

/// Saves a document. Adds the format's extension if the path does not end in it.
/// @param length of the file in bytes; fails if it exceeds LongestFile.
/// @param write stores that many bytes. Must not throw.
FileResult SaveDocumentFile(const FilePath& path, const DocumentFormat& format, std::int64_t length,
                            const std::function<void(ChunkWriter&)>& write);

} // namespace railwright
