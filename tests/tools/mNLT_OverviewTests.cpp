#include "tools/mNLT_Overview.h"

#include "geometry/mNoLimits_TrackTools.h"
#include "platform/Paths.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

class Overview : public testing::EmptyDocuments {};

std::string Report() {
    AnalyzeTrack();
    return BuildTrackOverview("gone.nltrack", {"'", "."});
}

/// Expects lines, whose ends are written as LF here, to stand in the report.
void ExpectLines(const std::string& report, const std::string& lines) {
    std::string expected;
    for (const char c : lines)
        expected += c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_NE(report.find(expected), std::string::npos) << expected << "is not in\n" << report;
}

/// @return one record for each of `types`, and the spare one that the reader leaves.
template <class Record>
std::vector<Record> OfTypes(std::int32_t Record::*type, const std::vector<std::int32_t>& types) {
    std::vector<Record> records;
    for (const std::int32_t one : types)
        records.emplace_back().*type = one;
    records.emplace_back();
    return records;
}

TEST_F(Overview, TellsEverythingLineByLine) {
    testing::SetStraightCurve({{-1000, 10.004F, 0}, {2000, 10.004F, 0}, {2000, 70, -80}}, false);
    Track.FileHeader.Version = {1, 3, 0, 7};
    Track.TrackHeader.TrackType = 9;
    Track.TrackHeader.NumTrains = 1234;
    Track.TrackHeader.CarsPerTrain = 5;
    Track.TrackInfo.AuthorComments = "Built in M\xFCnchen,\r\nfor fun.";
    auto& segments = Track.SegmentList;
    segments = {
        {}, false, 12, OfTypes(&TrackSegment::SegmentType, {0, 1, 2, 2, 3, 4, 4, 4, 5, 256, 257, -1})};
    for (const std::size_t tunnel : {0U, 1U, 5U, 11U, 12U}) // the last is beyond the count
        segments.Segments[tunnel].Tunnel = true;
    Track.FreeNodes.Count = 1001;
    Track.FundamentalNodes.Count = 2;
    Track.SupportBeams = {
        {}, 19, OfTypes(&SupportBeam::BeamType, {0, 1, 1, 2, 2, 2, 3, 4, 4, 5, 6, 6, 7, 8, 9, 9, 9, 9, 10})};
    Track.WoodCatwalks.Count = 3;
    Track.PreFabSupports = {{}, 3, {{2, 0}, {0, 2}, {8, 2}, {}}, {}};
    for (const std::int32_t type : {0, 1, 2, 3, 4, 5, 6, 7, 7, -9})
        Track.PreFabSupports.Supports.push_back({type, 0});
    Track.Scenery.TreeCount = 8;
    Track.Scenery.Trees = OfTypes(&Tree::TreeType, {0, 1, 2, 2, 3, 3, 3, 4});
    Track.SceneryObjects.Count = 2;
    Track.SceneryObjects.Items.resize(3);
    Track.SceneryObjects.Items[0].FileName = "caf\xE9.3ds";
    Track.SceneryObjects.Items[1].FileName = "sub\\gate.3ds";
    Track.Terrain.HasTerrain = true;
    Track.Terrain.GridSizeX = 3, Track.Terrain.GridSizeZ = 1;
    Track.Terrain.Heights = {12.5F, 1234, 13};
    Track.Environment.PreferredEnvironment = "Alps";
    AnalyzeTrack();
    const testing::TemporaryFolder folder;
    testing::WriteBytes(folder.File("My.NLTRACK run.nltrack"), std::vector<unsigned char>(12345));
    const std::string report = BuildTrackOverview(folder.Inside("My.NLTRACK run.nltrack"), {".", ","});
    EXPECT_TRUE(report.starts_with("File Name") && report.ends_with("fun.\r\n"));
    ExpectLines(
        report,
        "File Name...: My run\nFile Size...: 12.345 bytes.\nFile Version: 1.3.7.0\n\n"
        "Track Type..........: Wooden Coaster (Trailored 2 Seat)\nTrack Length........: 3.100,00 meters.\n"
        "Complete Circut.....: No\nNumber of Trains....: 1234\nCars per Train......: 5\n"
        "Lowest Track Height.: 10,00 meters.\nHighest Track Height: 70,00 meters.\n"
        "Area Track Requires.: 3.000,00 x 80,00 x 60,00 cubic meters.\n\n"
        "Total Segments...: 12\n   Normal...: 1\n   Station..: 1\n   Lift.....: 2\n   Transport: 1\n"
        "   Brake....: 3\nTunneled Segments: 4\nActual Tunnels...: 3\n\n"
        "Total Free Nodes.......: 1.001\nTotal Fundamental Nodes: 2\n\n"
        "Total Support Beams: 19\n   Small...: 3\n   Medium..: 1\n   Large...: 2\n   X Large.: 1\n"
        "   XX Large: 2\n   'L' Beam: 1\n   'H' Beam: 2\n   Wood 4x4: 1\n   Wood 2x2: 4\n   Wood 1x4: 1\n\n"
        "Total Wood Catwalks: 3\n\n"
        "Total Pre-Fabricated Supports: 10\n   Track Nodes...: 1\n   Single........: 1\n"
        "   Complex.......: 1\n   Inverted......: 1\n   90 Degree Bank: 1\n   Small Inverted: 1\n"
        "   'A' Shape.....: 2\n\n"
        "Total Trees: 8\n   Type A: 1\n   Type B: 2\n   Type C: 3\n\n"
        "Total Objects: 2\n   Object 001: caf\u00E9.3ds\n   Object 002: sub\\gate.3ds\n\n"
        "Has Terrain...........: Yes\nTerrain Grid Size.....: 3 x 1\nLowest Terrain Height.: 12,5 meters.\n"
        "Highest Terrain Height: 1234 meters.\n\n"
        "Prefered Environment: Alps\n\n"
        "Author's Comments: 27 character(s) long.\nBuilt in M\u00FCnchen,\nfor fun.\n");
}

TEST_F(Overview, TellsOfAnEmptyTrackWhoseFileIsGone) {
    Track.TrackHeader.TrackType = 13;
    const std::string report = Report();
    ExpectLines(report, "File Name...: gone\nFile Size...: 0 bytes.\nFile Version: 0.0.0.0\n\n"
                        "Track Type..........: \nTrack Length........: 0.00 meters.\n");
    ExpectLines(report, "Area Track Requires.: 0.00 x 0.00 x 0.00 cubic meters.\n");
    ExpectLines(report, "Has Terrain...........: No\n\nPrefered Environment: -none-\n\n"
                        "Author's Comments: 0 character(s) long.\n\n");
}

TEST_F(Overview, RoundsHeightsOfTheTrackTiesToEvenAndPrintsThoseOfTheTerrainPlainly) {
    const std::pair<float, std::string> ofTrack[] = {{0.125F, "0.12"}, {-0.004F, "0.00"}, {-3.5F, "-3.50"}};
    for (const auto& [height, expected] : ofTrack) {
        testing::SetStraightCurve({{0, height, 0}, {100, height, 0}}, false);
        ExpectLines(Report(), "Lowest Track Height.: " + expected +
                                  " meters.\nHighest Track Height: " + expected + " meters.\n");
    }
    const std::tuple<std::vector<float>, std::string, std::string> ofTerrain[] = {
        {{7, 1234567}, "7", "1234567"},     {{0.125F, 100}, "0.13", "100"},
        {{-0.125F, -0.004F}, "-0.13", "0"}, {{-1200.5F, 0.1F}, "-1200.5", "0.1"},
        {{1000, 2000}, "999", "2000"},      {{}, "999", "-999"}};
    Track.Terrain.HasTerrain = true;
    for (const auto& [heights, lowest, highest] : ofTerrain) {
        Track.Terrain.Heights = heights;
        ExpectLines(Report(), "Lowest Terrain Height.: " + lowest +
                                  " meters.\nHighest Terrain Height: " + highest + " meters.\n");
    }
}

TEST_F(Overview, CountsTunnelsByRunsAndNamesTheKindsOfTrack) {
    for (const std::string flags : {"11000100", "11111111", "10000001"}) {
        Track.SegmentList = {{}, true, 8, {}};
        for (const char flag : flags)
            Track.SegmentList.Segments.emplace_back().Tunnel = flag == '1';
        ExpectLines(Report(), flags == "11111111" ? "Tunneled Segments: 8\nActual Tunnels...: 1\n"
                              : flags[1] == '1'   ? "Tunneled Segments: 3\nActual Tunnels...: 2\n"
                                                  : "Tunneled Segments: 2\nActual Tunnels...: 2\n");
    }
    EXPECT_EQ(TrackTypeName(0) + TrackTypeName(4) + TrackTypeName(-1), "Steel LoopingInverted (4 Seat)");
    EXPECT_EQ(TrackTypeName(12), "Wooden Coaster (Trailored 4 Seat)");
}

} // namespace
} // namespace railwright
