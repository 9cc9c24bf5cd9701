#pragma once

#include "element/mNoLimits_ElementIO_1_3.h"
#include "fuzz/HeapWatch.h"
#include "tests/support/MemoryFiles.h"
#include "track/mNoLimits_TrackIO_1_3.h"

namespace railwright::fuzz {

using Bytes = testing::MemoryFiles::Bytes;

/// What is done with the files of one kind of document.
struct Kind {
    std::string_view Extension;
    void (*Clear)();
    FileResult (*Load)(const std::string&);
    FileResult (*Save)(const std::string&);
};
inline constexpr Kind Tracks = {TrackExtension, ClearTrackDocument, LoadTrackFile, SaveTrackFile};
inline constexpr Kind Elements = {ElementExtension, ClearElementDocument, LoadElementFile, SaveElementFile};

/// @return the file of the document in hand.
inline Bytes Saved(const Kind& kind) {
    testing::MemoryFiles files;
    const std::string name = "saved" + std::string(kind.Extension);
    Require(kind.Save(name).Done, "what is in hand can be saved");
    return *files.Find(name);
}

/// @return whether a file could be loaded. One that could not has left an empty document and a reason.
inline bool Load(const Kind& kind, const Bytes& file) {
    testing::MemoryFiles files;
    const std::string name = "loaded" + std::string(kind.Extension);
    files.Put(name, file);
    kind.Clear();
    static const Bytes empty[] = {Saved(Tracks), Saved(Elements)};
    HeapWatch watch;
    const FileResult loaded = kind.Load(name);
    watch.RequireSmall(file.size());
    const auto length = static_cast<std::int64_t>(file.size());
    Require(loaded.Done == loaded.Reason.empty() && loaded.Byte >= 0 && loaded.Byte <= length,
            "a failure has a reason and a byte of the file");
    Require(loaded.Done || Saved(kind) == empty[&kind == &Elements], "a failure leaves an empty document");
    return loaded.Done;
}

/// What is in hand can be saved, and what was saved loads and saves to the same bytes.
inline void RequireToComeBack(const Kind& kind) {
    const Bytes file = Saved(kind);
    Require(Load(kind, file), "what was saved can be loaded");
    Require(Saved(kind) == file, "what was saved is saved the same again");
}

} // namespace railwright::fuzz
