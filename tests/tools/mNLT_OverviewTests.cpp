#include "tools/mNLT_Overview.h"

#include "geometry/mNoLimits_TrackTools.h"
#include "platform/Paths.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

#include <limits>

namespace railwright {
namespace {

class Overview : public testing::EmptyDocuments {
protected:
    static std::string Report(const NumberSeparators& separators = {}) {
        AnalyzeTrack();
        return BuildTrackOverview("gone.nltrack", separators);
    }
    /// What stands behind a label.
    static std::string Value(const std::string& report, const std::string& label) {
        const std::size_t from = report.find(label) + label.size();
        return report.substr(from, report.find("\r\n", from) - from);
    }
};

/// Fills a list with one record for each of `types`, and the spare one that the reader leaves.
template <class Record>
void Fill(std::vector<Record>& list, std::int32_t& count, std::int32_t Record::*type,
          const std::vector<std::int32_t>& types) {
    list.clear();
    for (const std::int32_t one : types)
        list.emplace_back().*type = one;
    list.emplace_back();
    count = static_cast<std::int32_t>(types.size());
}

void FillTrack() {
    testing::SetStraightCurve({{-1000, 10.004F, 0}, {2000, 10.004F, 0}, {2000, 70, -80}}, false);
    Track.FileHeader.Version = {1, 3, 0, 7};
    Track.TrackHeader.TrackType = 9;
    Track.TrackHeader.NumTrains = 1234;
    Track.TrackHeader.CarsPerTrain = 5;
    Track.TrackInfo.AuthorComments = "Built in M\xFCnchen,\r\nfor fun.";
    auto& segments = Track.SegmentList;
    Fill(segments.Segments, segments.SegmentCount, &TrackSegment::SegmentType,
         {0, 1, 2, 2, 3, 4, 4, 4, 5, 256, 257, -1});
    for (const std::size_t tunnel : {0U, 1U, 5U, 11U})
        segments.Segments[tunnel].Tunnel = true;
    segments.Segments.back().Tunnel = true; // beyond the count
    Track.FreeNodes.Count = 1001;
    Track.FundamentalNodes.Count = 2;
    Fill(Track.SupportBeams.Items, Track.SupportBeams.Count, &SupportBeam::BeamType,
         {0, 1, 1, 2, 2, 2, 3, 4, 4, 5, 6, 6, 7, 8, 9, 9, 9, 9, 10});
    Track.WoodCatwalks.Count = 3;
    auto& prefab = Track.PreFabSupports;
    prefab.NodeCount = 3;
    prefab.Nodes = {{2, 0}, {0, 2}, {8, 2}, {}};
    for (const std::int32_t type : {0, 1, 2, 3, 4, 5, 6, 7, 7, -9})
        prefab.Supports.push_back({type, 0});
    Fill(Track.Scenery.Trees, Track.Scenery.TreeCount, &Tree::TreeType, {0, 1, 2, 2, 3, 3, 3, 4});
    Track.SceneryObjects.Count = 2;
    Track.SceneryObjects.Items.resize(3);
    Track.SceneryObjects.Items[0].FileName = "caf\xE9.3ds";
    Track.SceneryObjects.Items[1].FileName = "sub\\gate.3ds";
    Track.Terrain.HasTerrain = true;
    Track.Terrain.GridSizeX = 3;
    Track.Terrain.GridSizeZ = 1;
    Track.Terrain.Heights = {12.5F, 1234, 13};
    Track.Environment.PreferredEnvironment = "Alps";
}

TEST_F(Overview, TellsEverythingLineByLine) {
    FillTrack();
    AnalyzeTrack();
    const testing::TemporaryFolder folder;
    testing::WriteBytes(folder.File("My.NLTRACK run.nltrack"), std::vector<unsigned char>(12345));
    const std::string expected = //
        "File Name...: My run\r\n"
        "File Size...: 12.345 bytes.\r\n"
        "File Version: 1.3.7.0\r\n"
        "\r\n"
        "Track Type..........: Wooden Coaster (Trailored 2 Seat)\r\n"
        "Track Length........: 3.100,00 meters.\r\n"
        "Complete Circut.....: No\r\n"
        "Number of Trains....: 1234\r\n"
        "Cars per Train......: 5\r\n"
        "Lowest Track Height.: 10,00 meters.\r\n"
        "Highest Track Height: 70,00 meters.\r\n"
        "Area Track Requires.: 3.000,00 x 80,00 x 60,00 cubic meters.\r\n"
        "\r\n"
        "Total Segments...: 12\r\n"
        "   Normal...: 1\r\n"
        "   Station..: 1\r\n"
        "   Lift.....: 2\r\n"
        "   Transport: 1\r\n"
        "   Brake....: 3\r\n"
        "Tunneled Segments: 4\r\n"
        "Actual Tunnels...: 3\r\n"
        "\r\n"
        "Total Free Nodes.......: 1.001\r\n"
        "Total Fundamental Nodes: 2\r\n"
        "\r\n"
        "Total Support Beams: 19\r\n"
        "   Small...: 3\r\n"
        "   Medium..: 1\r\n"
        "   Large...: 2\r\n"
        "   X Large.: 1\r\n"
        "   XX Large: 2\r\n"
        "   'L' Beam: 1\r\n"
        "   'H' Beam: 2\r\n"
        "   Wood 4x4: 1\r\n"
        "   Wood 2x2: 4\r\n"
        "   Wood 1x4: 1\r\n"
        "\r\n"
        "Total Wood Catwalks: 3\r\n"
        "\r\n"
        "Total Pre-Fabricated Supports: 10\r\n"
        "   Track Nodes...: 1\r\n"
        "   Single........: 1\r\n"
        "   Complex.......: 1\r\n"
        "   Inverted......: 1\r\n"
        "   90 Degree Bank: 1\r\n"
        "   Small Inverted: 1\r\n"
        "   'A' Shape.....: 2\r\n"
        "\r\n"
        "Total Trees: 8\r\n"
        "   Type A: 1\r\n"
        "   Type B: 2\r\n"
        "   Type C: 3\r\n"
        "\r\n"
        "Total Objects: 2\r\n"
        "   Object 001: caf\u00E9.3ds\r\n"
        "   Object 002: sub\\gate.3ds\r\n"
        "\r\n"
        "Has Terrain...........: Yes\r\n"
        "Terrain Grid Size.....: 3 x 1\r\n"
        "Lowest Terrain Height.: 12,5 meters.\r\n"
        "Highest Terrain Height: 1234 meters.\r\n"
        "\r\n"
        "Prefered Environment: Alps\r\n"
        "\r\n"
        "Author's Comments: 27 character(s) long.\r\n"
        "Built in M\u00FCnchen,\r\nfor fun.\r\n";
    EXPECT_EQ(BuildTrackOverview(folder.Inside("My.NLTRACK run.nltrack"), {".", ","}), expected);
}

TEST_F(Overview, TellsOfAnEmptyTrackWhoseFileIsGone) {
    Track.TrackHeader.TrackType = 13;
    const std::string report = Report();
    EXPECT_TRUE(report.starts_with("File Name...: gone\r\nFile Size...: 0 bytes.\r\nFile Version: 0.0.0.0\r\n"
                                   "\r\nTrack Type..........: \r\nTrack Length........: 0.00 meters.\r\n"));
    EXPECT_NE(report.find("Lowest Track Height.: 0.00 meters.\r\nHighest Track Height: 0.00 meters.\r\n"
                          "Area Track Requires.: 0.00 x 0.00 x 0.00 cubic meters.\r\n\r\n"),
              std::string::npos);
    EXPECT_TRUE(report.ends_with("Total Objects: 0\r\n\r\nHas Terrain...........: No\r\n\r\n"
                                 "Prefered Environment: -none-\r\n\r\n"
                                 "Author's Comments: 0 character(s) long.\r\n\r\n"));
}

TEST_F(Overview, RoundsHeightsOfTheTrackTiesToEven) {
    const std::pair<float, const char*> cases[] = {{0.125F, "0.12 meters."},
                                                   {0.375F, "0.38 meters."},
                                                   {-0.004F, "0.00 meters."},
                                                   {-3.5F, "-3.50 meters."}};
    for (const auto& [height, expected] : cases) {
        testing::SetStraightCurve({{0, height, 0}, {100, height, 0}}, false);
        const std::string report = Report();
        EXPECT_EQ(Value(report, "Lowest Track Height.: "), expected);
        EXPECT_EQ(Value(report, "Highest Track Height: "), expected);
    }
}

TEST_F(Overview, PrintsHeightsOfTheTerrainPlainly) {
    struct Case {
        std::vector<float> Heights;
        const char* Lowest;
        const char* Highest;
    };
    const Case cases[] = {
        {{7, 1234567}, "7", "1234567"},
        {{0.125F, 100}, "0.13", "100"},
        {{-0.125F, -0.004F}, "-0.13", "0"},
        {{-1200.5F, 0.1F}, "-1200.5", "0.1"},
        {{1000, 2000}, "999", "2000"}, // the search starts there
        {{}, "999", "-999"},
    };
    Track.Terrain.HasTerrain = true;
    for (const Case& one : cases) {
        Track.Terrain.Heights = one.Heights;
        Track.Terrain.GridSizeX = 1;
        Track.Terrain.GridSizeZ = static_cast<std::int32_t>(one.Heights.size());
        const std::string report = Report({"'", "."});
        EXPECT_EQ(Value(report, "Lowest Terrain Height.: "), std::string(one.Lowest) + " meters.");
        EXPECT_EQ(Value(report, "Highest Terrain Height: "), std::string(one.Highest) + " meters.");
    }
}

TEST_F(Overview, CountsTunnelsByRuns) {
    const std::pair<const char*, const char*> cases[] = {
        {"11000100", "3 2"}, {"11111111", "8 1"}, {"10000001", "2 2"}, {"00000000", "0 0"}, {"1", "1 1"}};
    for (const auto& [flags, expected] : cases) {
        auto& list = Track.SegmentList;
        list.ClosedCircuit = true;
        list.Segments.clear();
        for (const char flag : std::string(flags))
            list.Segments.emplace_back().Tunnel = flag == '1';
        list.SegmentCount = static_cast<std::int32_t>(list.Segments.size());
        const std::string report = Report();
        EXPECT_EQ(Value(report, "Tunneled Segments: ") + ' ' + Value(report, "Actual Tunnels...: "),
                  expected);
    }
}

TEST_F(Overview, NamesTheKindsOfTrack) {
    EXPECT_EQ(TrackTypeName(0), "Steel Looping");
    EXPECT_EQ(TrackTypeName(4), "Inverted (4 Seat)");
    EXPECT_EQ(TrackTypeName(12), "Wooden Coaster (Trailored 4 Seat)");
    for (const std::int32_t unknown : {-1, 13, std::numeric_limits<std::int32_t>::min()})
        EXPECT_EQ(TrackTypeName(unknown), "");
}

} // namespace
} // namespace railwright
