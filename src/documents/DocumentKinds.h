#pragma once

#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace railwright {

/// A kind of document, with the functions that work on the open document of that kind.
struct DocumentKind {
    /// The name for titles and messages.
    std::string_view Name;
    /// The extension in lower case, with its dot.
    std::string_view Extension;
    void (*Clear)();
    FileResult (*Load)(const FilePath&);
    FileResult (*Save)(const FilePath&);
    void (*Analyze)();
    /// Draws the result of the last Analyze.
    void (*Draw)(PictureBox& plan, PictureBox& side);
    /// Draws the same pictures without a previous analysis and without its memory.
    void (*DrawWhileSampling)(PictureBox& plan, PictureBox& side);
};

inline constexpr DocumentKind TrackKind = {.Name = "Track",
                                           .Extension = TrackExtension,
                                           .Clear = ClearTrackDocument,
                                           .Load = LoadTrackFile,
                                           .Save = SaveTrackFile,
                                           .Analyze = AnalyzeTrack,
                                           .Draw = DrawTrackPreview,
                                           .DrawWhileSampling = DrawTrackWhileSampling};
inline constexpr DocumentKind ElementKind = {.Name = "Element",
                                             .Extension = ElementExtension,
                                             .Clear = ClearElementDocument,
                                             .Load = LoadElementFile,
                                             .Save = SaveElementFile,
                                             .Analyze = AnalyzeElement,
                                             .Draw = DrawElementPreview,
                                             .DrawWhileSampling = DrawElementWhileSampling};
inline constexpr std::array DocumentKinds = {TrackKind, ElementKind};

/// The error for a file of neither kind.
inline constexpr const char* OfNoKind = "the name ends in neither .nltrack nor .nlelem";

/// Finds the kind of a file by its name.
/// @param kinds DocumentKinds, or a table with rows derived from DocumentKind.
/// @return the row; nullptr for a file of neither kind.
template <class Rows>
const typename Rows::value_type* KindOf(const Rows& kinds, std::string_view file) {
    const auto row = std::find_if(kinds.begin(), kinds.end(), [&](const DocumentKind& kind) {
        return HasExtension(file, kind.Extension);
    });
    return row == kinds.end() ? nullptr : &*row;
}

} // namespace railwright
