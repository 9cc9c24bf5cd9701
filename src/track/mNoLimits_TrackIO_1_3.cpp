#include "track/mNoLimits_TrackIO_1_3.h"

#include "base/FileName.h"
#include "format/DocumentFile.h"
#include "track/TrackLayout.h"

#include <array>
#include <string_view>

namespace railwright {
namespace {

constexpr int ChunkKinds = 15;
constexpr int DeepestChunk = 3;
constexpr std::int64_t FrameSize = FileSize::Tag + FileSize::Long;

template <class Record>
void ReadChunk(ChunkReader& reader, Record& record) {
    reader.Group([&](auto& values) { values.Long(record.ChunkSize); });
    Fields(reader, record);
    reader.Count("SubChunks", record.SubChunks);
}

/// Skips an unknown chunk and its sub-chunks. Some writers leave the four bytes of the last field out of the
/// size. The next tag then starts four bytes later.
void SkipChunk(ChunkReader& reader) {
    const std::int64_t sizeAt = reader.Position();
    std::int32_t size = 0;
    reader.Group([&](auto& values) { values.Long(size); });
    if (size < 0 || reader.Position() + size > reader.FileLength())
        throw BrokenFile{"an unknown chunk of " + std::to_string(size) + " bytes leads out of the file",
                         sizeAt};
    reader.CountUnknown(size);
    reader.PassOver("unknown chunk", size);
    if (!reader.LettersStandAhead(0) && reader.LettersStandAhead(FileSize::Long))
        reader.PassOver("its last field", FileSize::Long);
}

/// Reads the chunks that follow the root's own fields, at any depth of the tree.
void ReadChunks(ChunkReader& reader) {
    ReadChunk(reader, Track.FileHeader);
    std::int64_t pending = Track.FileHeader.SubChunks;
    for (; pending >= 1; --pending) {
        const std::string_view tag = reader.Tag();
        bool known = false;
        ForEachChunk(Track, [&](int depth, const char* name, auto& record) {
            if (known || depth == 0 || tag != name)
                return;
            known = true;
            ReadChunk(reader, record);
            pending += record.SubChunks;
            if constexpr (requires { record.HasTerrain; })
                record.HasTerrain = true;
        });
        if (!known)
            SkipChunk(reader);
    }
}

constexpr DocumentFormat TrackFormat = {TrackExtension, "NLIM", ClearTrackDocument, ReadChunks};

/// Visits the chunks that the file contains.
template <class Visit>
void ForEachStoredChunk(Visit&& visit) {
    ForEachChunk(Track, [&](int depth, const char* tag, auto& record) {
        if constexpr (requires { record.HasTerrain; }) {
            if (!record.HasTerrain)
                return;
        }
        visit(depth, tag, record);
    });
}

} // namespace

FileResult LoadTrackFile(const FilePath& sFile) {
    return LoadDocumentFile(sFile, TrackFormat);
}

FileResult ReadTrackFile(const FilePath& sFile, UnknownChunks& unknown) {
    return ReadDocumentFile(sFile, TrackFormat, unknown);
}

std::int64_t ComputeChunkSizes() {
    struct Chunk {
        ChunkRecord* Record;
        std::int64_t Size;
        std::int32_t SubChunks;
    };
    std::array<Chunk, ChunkKinds> chunks{};
    std::array<Chunk*, DeepestChunk + 1> open{}; // current chunk at each depth
    std::size_t used = 0;
    ForEachStoredChunk([&](int depth, const char*, auto& record) {
        Chunk& chunk = chunks[used++];
        chunk = {&record, SizeOf(record) + FileSize::Long, 0};
        const auto level = static_cast<std::size_t>(depth);
        open[level] = &chunk;
        for (std::size_t above = 0; above < level; ++above)
            open[above]->Size += FrameSize + chunk.Size;
        if (level > 0)
            ++open[level - 1]->SubChunks;
    });
    const std::int64_t length = FrameSize + chunks[0].Size;
    if (length <= LongestFile)
        for (const Chunk& chunk : std::span(chunks).first(used)) {
            chunk.Record->ChunkSize = static_cast<std::int32_t>(chunk.Size);
            chunk.Record->SubChunks = chunk.SubChunks;
        }
    return length;
}

FileResult SaveTrackFile(const FilePath& sFile) {
    return SaveDocumentFile(sFile, TrackFormat, ComputeChunkSizes(), [](ChunkWriter& writer) {
        ForEachStoredChunk([&](int, const char* tag, const auto& record) {
            writer.Tag(tag);
            writer.Group([&](auto& values) { values.Long(record.ChunkSize); });
            Fields(writer, record);
            writer.Count("SubChunks", record.SubChunks);
        });
    });
}

} // namespace railwright
