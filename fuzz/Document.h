#pragma once

#include "element/mNoLimits_ElementIO_1_3.h"
#include "fuzz/Fuzz.h"
#include "track/mNoLimits_TrackIO_1_3.h"

namespace railwright::fuzz {

/// What is done with the files of one kind of document.
struct Kind {
    std::string File;
    void (*Clear)();
    FileResult (*Load)(const std::string&);
    FileResult (*Save)(const std::string&);
};
inline const Kind track = {"a.nltrack", ClearTrackDocument, LoadTrackFile, SaveTrackFile};
inline const Kind element = {"a.nlelem", ClearElementDocument, LoadElementFile, SaveElementFile};

/// @return the file of the document in hand.
inline Bytes Saved(const Kind& kind) {
    const testing::MemoryFiles files;
    Require(kind.Save(kind.File).Done, "what is in hand can be saved");
    return *files.Find(kind.File);
}

/// @return whether a file could be loaded. One that could not has left a reason and an empty document.
inline bool Load(const Kind& kind, const Bytes& file) {
    kind.Clear();
    static const Bytes empty[] = {Saved(track), Saved(element)};
    testing::MemoryFiles files;
    files.Put(kind.File, file);
    Heap::Start();
    const FileResult loaded = kind.Load(kind.File);
    Heap::StopAfter(file.size());
    Require(loaded.Done == loaded.Reason.empty() && loaded.Byte >= 0 && loaded.Byte <= std::ssize(file),
            "a failure has a reason and a byte of the file");
    Require(loaded.Done || Saved(kind) == empty[&kind == &element], "a failure leaves an empty document");
    return loaded.Done;
}

/// What is in hand can be saved, and what was saved loads and saves to the same bytes.
inline void RequireToComeBack(const Kind& kind) {
    const Bytes file = Saved(kind);
    Require(Load(kind, file), "what was saved can be loaded");
    Require(Saved(kind) == file, "what was saved is saved the same again");
}

} // namespace railwright::fuzz
