#include "tools/mNLT_Overview.h"

#include "base/FileName.h"
#include "geometry/TrackSamples.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "platform/CodePage.h"
#include "platform/WholeFile.h"
#include "track/TrackDocument.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

namespace railwright {
namespace {

constexpr const char* WholePattern = "###,###,##0";
constexpr const char* HundredthsPattern = "###,###,##0.00";
constexpr const char* EndOfLine = "\r\n";
/// Estimated bytes of a report per object, and for everything except objects and comments.
constexpr std::size_t LineOfObject = 48;
constexpr std::size_t RestOfReport = 2048;

/// A line of the report with the number of records of one type.
struct TallyLine {
    const char* Label;
    std::int32_t Type;
};

constexpr std::array SegmentLines = {TallyLine{"   Normal...: ", 0}, TallyLine{"   Station..: ", 1},
                                     TallyLine{"   Lift.....: ", 2}, TallyLine{"   Transport: ", 3},
                                     TallyLine{"   Brake....: ", 4}};
constexpr std::array BeamLines = {TallyLine{"   Small...: ", 2}, TallyLine{"   Medium..: ", 0},
                                  TallyLine{"   Large...: ", 1}, TallyLine{"   X Large.: ", 5},
                                  TallyLine{"   XX Large: ", 6}, TallyLine{"   'L' Beam: ", 3},
                                  TallyLine{"   'H' Beam: ", 4}, TallyLine{"   Wood 4x4: ", 7},
                                  TallyLine{"   Wood 2x2: ", 9}, TallyLine{"   Wood 1x4: ", 8}};
constexpr std::array SupportLines = {TallyLine{"   Track Nodes...: ", 0}, TallyLine{"   Single........: ", 2},
                                     TallyLine{"   Complex.......: ", 3}, TallyLine{"   Inverted......: ", 4},
                                     TallyLine{"   90 Degree Bank: ", 5}, TallyLine{"   Small Inverted: ", 6},
                                     TallyLine{"   'A' Shape.....: ", 7}};
constexpr std::array TreeLines = {TallyLine{"   Type A: ", 1}, TallyLine{"   Type B: ", 2},
                                  TallyLine{"   Type C: ", 3}};

/// The number of records of each type from 0 to 256. Ignores other types.
class Tally {
public:
    void Add(std::int32_t type) {
        if (const auto place = static_cast<std::size_t>(type); place < counts.size())
            ++counts[place];
    }
    std::int64_t Of(std::int32_t type) const { return counts[static_cast<std::size_t>(type)]; }

private:
    std::array<std::int64_t, 257> counts{};
};

template <class Item>
std::span<const Item> Used(const List<Item>& items, std::int32_t count) {
    return std::span(items).first(static_cast<std::size_t>(count));
}

template <class Item>
Tally CountTypes(std::span<const Item> items, std::int32_t Item::*type) {
    Tally tally;
    for (const Item& item : items)
        tally.Add(item.*type);
    return tally;
}

struct Tunnels {
    std::int64_t Segments = 0;
    /// Contiguous groups of tunnel segments. A group across the end of the list counts twice.
    std::int64_t Runs = 0;
};

Tunnels CountTunnels(std::span<const TrackSegment> segments) {
    Tunnels tunnels;
    bool inside = false;
    for (const TrackSegment& segment : segments) {
        tunnels.Segments += segment.Tunnel ? 1 : 0;
        tunnels.Runs += segment.Tunnel && !inside ? 1 : 0;
        inside = segment.Tunnel;
    }
    return tunnels;
}

/// The form of document texts in a report. A terminal interprets control characters; the window does not.
enum class Texts { AsStored, Printable };

class Report {
public:
    Report(TextOutput& output, const NumberSeparators& numberSeparators, Texts form)
        : out(output), separators(numberSeparators), texts(form) {}

    void Line(std::string_view label, std::string_view value = "") { out << label << value << EndOfLine; }
    void Name(std::string_view label, const text& name) { Stored(label, name, OnOneLine); }
    void Lines(const text& lines) { Stored("", lines, OnLines); }
    void BlankLine() { Line(""); }
    void WholeLine(const char* label, std::int64_t value, const char* behind = "") {
        Line(label, Whole(value) + behind);
    }
    void Tallies(std::span<const TallyLine> rows, const Tally& tally) {
        for (const TallyLine& row : rows)
            WholeLine(row.Label, tally.Of(row.Type));
    }

    std::string Whole(std::int64_t value) const {
        return FormatNumber(static_cast<double>(value), WholePattern, separators);
    }
    /// Formats a length in metres, rounded to hundredths.
    std::string Metres(float value) const {
        return FormatNumber(RoundToHundredths(static_cast<double>(value)), HundredthsPattern, separators);
    }
    /// Formats a terrain height with at most two decimals, without trailing zeros or thousands separators.
    std::string TerrainHeight(float value) const {
        std::string height = FormatNumber(static_cast<double>(value), "0.00", {"", separators.Decimal});
        if (!std::isfinite(value))
            return height;
        height.erase(height.find_last_not_of('0') + 1);
        if (height.ends_with(separators.Decimal))
            height.resize(height.size() - separators.Decimal.size());
        return height;
    }

private:
    void Stored(std::string_view label, const text& characters, std::string (*printable)(std::string_view)) {
        out << label;
        InUtf8(characters, SystemCodePage(), [&](std::string_view utf8) {
            if (texts == Texts::AsStored)
                out << utf8;
            else
                out << printable(utf8);
        });
        out << EndOfLine;
    }

    TextOutput& out;
    const NumberSeparators& separators;
    Texts texts;
};

void ReportFile(Report& report, const FilePath& sDocumentFile) {
    report.Line("File Name...: ", OnOneLine(WithoutEvery(sDocumentFile.Name().Native(), TrackExtension)));
    report.WholeLine("File Size...: ", FileLength(sDocumentFile), " bytes.");
    std::string version;
    for (const std::size_t place : {0U, 1U, 3U, 2U})
        version += (version.empty() ? "" : ".") + std::to_string(Track.FileHeader.Version[place]);
    report.Line("File Version: ", version);
    report.BlankLine();
}

void ReportTrack(Report& report, const TrackMeasures& measures) {
    const Bounds& bounds = measures.Box;
    const Vector3 extent = bounds.Extent();
    report.Line("Track Type..........: ", TrackTypeName(Track.TrackHeader.TrackType));
    report.Line("Track Length........: ", report.Metres(measures.Length) + " meters.");
    report.Line("Complete Circut.....: ", YesNoText(Track.SegmentList.ClosedCircuit));
    report.Line("Number of Trains....: ", std::to_string(Track.TrackHeader.NumTrains));
    report.Line("Cars per Train......: ", std::to_string(Track.TrackHeader.CarsPerTrain));
    report.Line("Lowest Track Height.: ", report.Metres(bounds.Least.Y) + " meters.");
    report.Line("Highest Track Height: ", report.Metres(bounds.Greatest.Y) + " meters.");
    report.Line("Area Track Requires.: ", report.Metres(extent.X) + " x " + report.Metres(extent.Z) + " x " +
                                              report.Metres(extent.Y) + " cubic meters.");
    report.BlankLine();
}

void ReportSegments(Report& report) {
    const auto segments = Used(Track.SegmentList.Segments, Track.SegmentList.SegmentCount);
    const Tunnels tunnels = CountTunnels(segments);
    report.WholeLine("Total Segments...: ", Track.SegmentList.SegmentCount);
    report.Tallies(SegmentLines, CountTypes(segments, &TrackSegment::SegmentType));
    report.WholeLine("Tunneled Segments: ", tunnels.Segments);
    report.WholeLine("Actual Tunnels...: ", tunnels.Runs);
    report.BlankLine();
}

void ReportSupports(Report& report) {
    report.WholeLine("Total Free Nodes.......: ", Track.FreeNodes.Count);
    report.WholeLine("Total Fundamental Nodes: ", Track.FundamentalNodes.Count);
    report.BlankLine();

    report.WholeLine("Total Support Beams: ", Track.SupportBeams.Count);
    report.Tallies(BeamLines, CountTypes(Used(Track.SupportBeams.Items, Track.SupportBeams.Count),
                                         &SupportBeam::BeamType));
    report.BlankLine();

    report.WholeLine("Total Wood Catwalks: ", Track.WoodCatwalks.Count);
    report.BlankLine();

    std::int64_t total = 0;
    Tally tally;
    for (const PreFabNode& node : Used(Track.PreFabSupports.Nodes, Track.PreFabSupports.NodeCount)) {
        total += node.SupportCount;
        for (const PreFabSupport& support : Track.PreFabSupports.SupportsOf(node))
            tally.Add(support.SupportType);
    }
    report.WholeLine("Total Pre-Fabricated Supports: ", total);
    report.Tallies(SupportLines, tally);
    report.BlankLine();
}

void ReportScenery(Report& report) {
    report.WholeLine("Total Trees: ", Track.Scenery.TreeCount);
    report.Tallies(TreeLines,
                   CountTypes(Used(Track.Scenery.Trees, Track.Scenery.TreeCount), &Tree::TreeType));
    report.BlankLine();

    report.WholeLine("Total Objects: ", Track.SceneryObjects.Count);
    int number = 0;
    for (const SceneryObject& object : Used(Track.SceneryObjects.Items, Track.SceneryObjects.Count))
        report.Name("   Object " + FormatNumber(++number, "000", {}) + ": ", object.FileName);
    report.BlankLine();
}

void ReportTerrain(Report& report) {
    const TerrainRecord& terrain = Track.Terrain;
    report.Line("Has Terrain...........: ", YesNoText(terrain.HasTerrain));
    if (terrain.HasTerrain) {
        float lowest = SearchStart;
        float highest = -SearchStart;
        for (const float height : terrain.Heights) {
            lowest = height < lowest ? height : lowest;
            highest = height > highest ? height : highest;
        }
        report.Line("Terrain Grid Size.....: ",
                    std::to_string(terrain.GridSizeX) + " x " + std::to_string(terrain.GridSizeZ));
        report.Line("Lowest Terrain Height.: ", report.TerrainHeight(lowest) + " meters.");
        report.Line("Highest Terrain Height: ", report.TerrainHeight(highest) + " meters.");
    }
    report.BlankLine();
}

void ReportTexts(Report& report) {
    const text& environment = Track.Environment.PreferredEnvironment;
    const text none = "-none-";
    report.Name("Prefered Environment: ", environment.empty() ? none : environment);
    report.BlankLine();
    const text& comments = Track.TrackInfo.AuthorComments;
    report.WholeLine("Author's Comments: ", static_cast<std::int64_t>(comments.size()),
                     " character(s) long.");
    report.Lines(comments);
}

void ReportAll(TextOutput& out, const FilePath& sDocumentFile, const NumberSeparators& separators,
               const TrackMeasures& measures, Texts texts) {
    Report report(out, separators, texts);
    ReportFile(report, sDocumentFile);
    ReportTrack(report, measures);
    ReportSegments(report);
    ReportSupports(report);
    ReportScenery(report);
    ReportTerrain(report);
    ReportTexts(report);
    out.Flush();
}

} // namespace

std::string BuildTrackOverview(const FilePath& sDocumentFile, const NumberSeparators& separators,
                               const TrackMeasures& measures) {
    std::string lines;
    lines.reserve(Track.TrackInfo.AuthorComments.size() +
                  static_cast<std::size_t>(Track.SceneryObjects.Count) * LineOfObject + RestOfReport);
    TextOutput out([&](std::string_view piece) { lines += piece; });
    ReportAll(out, sDocumentFile, separators, measures, Texts::AsStored);
    return lines;
}

void PrintTrackOverview(TextOutput& out, const FilePath& sDocumentFile, const NumberSeparators& separators) {
    ReportAll(out, sDocumentFile, separators, MeasureTrack(), Texts::Printable);
}

std::string TrackTypeName(std::int32_t TrackType) {
    constexpr std::array names = {"Steel Looping",
                                  "Corkscrew",
                                  "Inverted (2 Seat)",
                                  "Twisted Steel",
                                  "Inverted (4 Seat)",
                                  "Hyper Coaster (2 Seat)",
                                  "Floorless Twisted Steel",
                                  "Stand-Up Twisted Steel",
                                  "Hyper Coaster (4 Seat)",
                                  "Wooden Coaster (Trailored 2 Seat)",
                                  "Wooden Coaster (Classic 4 Seat)",
                                  "Wooden Coaster (Classic 6 Seat)",
                                  "Wooden Coaster (Trailored 4 Seat)"};
    const auto place = static_cast<std::size_t>(TrackType);
    return place < names.size() ? names[place] : "";
}

std::string YesNoText(bool value) {
    return value ? "Yes" : "No";
}

float TrackLength() {
    LengthOfSamples length;
    ForEachTrackSample([&](std::int32_t, const Vector3& sample) { length.Add(sample); });
    return length.Total();
}

} // namespace railwright
