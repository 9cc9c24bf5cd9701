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

/// A kind of document, and what every program does with the one in hand.
struct DocumentKind {
    /// As the user reads it in titles and messages.
    std::string_view Name;
    /// With its dot and in lower case.
    std::string_view Extension;
    void (*Clear)();
    FileResult (*Load)(const FilePath&);
    FileResult (*Save)(const FilePath&);
    void (*Analyze)();
    /// Draws what the last Analyze has found.
    void (*Draw)(PictureBox& plan, PictureBox& side);
    /// The same drawings, with neither an analysis nor memory for one.
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

/// What is wrong with a file of neither kind.
inline constexpr const char* OfNoKind = "the name ends in neither .nltrack nor .nlelem";

/// @param kinds DocumentKinds, or a table whose rows begin with them.
/// @return the row of the kind that a file's name tells, nullptr if that is of neither.
template <class Rows>
const typename Rows::value_type* KindOf(const Rows& kinds, std::string_view file) {
    const auto row = std::find_if(kinds.begin(), kinds.end(), [&](const DocumentKind& kind) {
        return HasExtension(file, kind.Extension);
    });
    return row == kinds.end() ? nullptr : &*row;
}

} // namespace railwright
