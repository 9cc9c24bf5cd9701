#include "cli/Steps.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "tests/support/DocumentTest.h"
#include "tests/support/Tracks.h"
#include "tools/mNLE_Reverse.h"
#include "tools/mNLE_Rotate.h"
#include "tools/mNLT_Backwards.h"
#include "tools/mNLT_Mirror.h"
#include "tools/mNLT_Move.h"
#include "tools/mNLT_Overview.h"
#include "tools/mNLT_Rotate.h"
#include "tools/mNLT_Scale.h"
#include "tools/mNLT_ShuttleMake.h"
#include "tools/mNLT_Smoother.h"

#include <gtest/gtest.h>

#include <sstream>

namespace railwright::testing {

static void RunStep(const std::string& step) {
    const bool ofElement = step == "reverse" || step.starts_with("rotate-");
    EXPECT_TRUE((ofElement ? ApplyElementSteps : ApplyTrackSteps)({&step, 1}, {}).Done) << step;
}

using Tools = EmptyDocuments;

TEST_F(Tools, ChangeEveryPointOfTheCurveAndAtWillTheNodesOfTheSupports) {
    const Vector3 point = {1, 2, 3};
    const std::pair<std::string, Vector3> steps[] = {
        {"move=0,+1,-10", {1, 3, -7}}, {"scale=0.5", {0.5F, 1, 1.5F}},   {"mirror=north-south", {1, 2, -3}},
        {"rotate=90", {3, 2, -1}},     {"mirror=east-west", {-1, 2, 3}}, {"rotate-x=90", {1, -3, 2}},
        {"rotate-y=90", {3, 2, -1}},   {"rotate-z=90", {-2, 1, 3}}};
    for (const auto& [step, changed] : steps)
        for (const bool supports : {false, true}) {
            SetCurve({{point, point, point, 30}, {point, point, point}}, true);
            Element.Nodes = {{point, point, point, 30}, {point, point, point}};
            Track.FreeNodes = {{}, 1, {{point}, {point}}}; // the second is beyond the count
            Track.FundamentalNodes = {{}, 1, {{point}}};
            const bool ofElement = step.starts_with("rotate-");
            RunStep(step + (supports || ofElement ? "" : ",track-only"));
            RotateElement(3, 90); // no axis
            for (std::size_t i = 0; i < 2; ++i) {
                const BezierNode& t = Track.BezierCurve.Nodes[i];
                const ElementNode& e = Element.Nodes[i];
                ExpectNear(ofElement ? e.Position : t.Position, changed, 1e-5F);
                ExpectNear(ofElement ? e.ControlIn : t.ControlIn, changed, 1e-5F);
                ExpectNear(ofElement ? e.ControlOut : t.ControlOut, changed, 1e-5F);
            }
            const Vector3& ofSupports = supports && !ofElement ? changed : point;
            ExpectNear(Track.FundamentalNodes.Items[0].Position, ofSupports, 1e-5F);
            ExpectNear(Track.FreeNodes.Items[0].Position, ofSupports, 1e-5F);
            EXPECT_EQ(Track.FreeNodes.Items[1].Position, point);
            EXPECT_EQ(Track.BezierCurve.Nodes[0].Roll + Element.Nodes[0].Roll, 60);
        }
}

/// @return a checksum (FNV-1a) of random documents after a tool. Half of their floats are special values.
template <class Document>
std::uint64_t ChecksumAfter(Document& inHand, void (*tool)()) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        inHand = Random<Document>(seed);
        if constexpr (requires { inHand.TrackHeader; })
            inHand.TrackHeader.Trains.resize(13); // running backwards leaves one train
        tool();
        for (const unsigned char byte : FileOf(inHand))
            sum = (sum ^ byte) * 0x100000001B3;
    }
    return sum;
}

// The same values with every compiler and at every optimization.
TEST_F(Tools, StoreTheSameBitsAndOneNaNWithEveryCompiler) {
    const auto move = [] { MoveTrack({0.1F, 0, -1e3F}, true); };
    const auto turn = [] { RotateElement(ElementAxis::X, 12.5F); };
    const std::tuple<const char*, void (*)(), std::uint64_t> ofTracks[] = {
        {"move", move, 0x90325104015A6E5B},
        {"scale", [] { ScaleTrack(-1, true); }, 0xFE1F54DC9087D3F3},
        {"rotate", [] { RotateTrack(33, true); }, 0xFC25A42E7C4C19B3},
        {"mirror", [] { MirrorTrack(MirrorMode::EastWest, true); }, 0xE992330B168DD403},
        {"shuttle", MakeShuttle, 0x39914E55D04BAF66},
        {"backwards", RebuildBackwards, 0x260B33EF3066EDE8},
        {"smooth", SmoothTrackNodes, 0x98672005AC748922}};
    for (const auto& [name, tool, sum] : ofTracks)
        EXPECT_EQ(ChecksumAfter(Track, tool), sum) << name;
    EXPECT_EQ(ChecksumAfter(Element, turn), 0xAE7DB11895F5EFAF);
    EXPECT_EQ(ChecksumAfter(Element, ReverseElement), 0x7A8C376BF8F00A70);
    for (const std::uint32_t bits : {0x7F800001U, 0xFF800001U, 0xFFC00123U}) {
        SetCurve({{{}, {}, {}, std::bit_cast<float>(bits)}}, false);
        RebuildBackwards();
        EXPECT_EQ(std::bit_cast<std::uint32_t>(Track.BezierCurve.Nodes[0].Roll), 0x7FC00000U);
    }
}

// The element leads from the origin to (20, 5, 30), where it has the direction of the row. The origin becomes
// its end and is at (-20, -5, -30) from there. It is rotated, and so is the first control point.
TEST_F(Tools, ReverseAnElementFromItsEndByAnAngleOfItsDirection) {
    const std::tuple<float, float, Vector3, Vector3> cases[] = {
        {0, -4, {20, -5, 30}, {0, 0, -4}},                         // north: half a turn
        {0, 0, {20, -5, 30}, {0, 0, 0}},                           // no direction: the same
        {4, 0, {30, -5, -20}, {0, 0, -4}},                         // east: a quarter turn back
        {-4, 0, {30, -5, -20}, {0, 0, 4}},                         // west: the same
        {4, -4, {7.071068F, -5, -35.35534F}, {-5.656854F, 0, 0}}}; // an eighth back
    for (const auto& [x, z, newEnd, newOut] : cases) {
        Element.Nodes = {{{}, {0, 0, -1}, {0, 0, 1}, 10, true, false},
                         {{20, 5, 30}, {21, 5, 31}, {20 - x, 5, 30 - z}, 30, false, false}};
        RunStep("reverse");
        const ElementNode &first = Element.Nodes[0], &last = Element.Nodes[1];
        ExpectNear(first.Position, {}, 1e-5F);
        ExpectNear(first.ControlOut, newOut, 1e-5F);
        ExpectNear(last.Position, newEnd, 1e-5F);
        EXPECT_TRUE(first.Roll == -30 && last.Roll == -10 && last.FlagA);
    }
}

static void FillClasses() {
    SetStraightCurve({{0, 1, 0}, {10, 1, 0}, {20, 1, 0}}, false);
    TrackSegment full;
    full.Tunnel = full.CustomColors = true;
    Track.SegmentList = {{}, false, 4, {full, full, full, full, {}}}; // one more than the curve has nodes
    Track.FreeNodes.Count = Track.FundamentalNodes.Count = Track.SupportBeams.Count = 2;
    Track.WoodCatwalks.Count = Track.Scenery.TreeCount = Track.SceneryObjects.Count = 2;
    Track.PreFabSupports = {{}, 2, {{1, 0}, {1, 1}}, {{}, {}}}; // one less
    Track.TrackInfo.AuthorComments = Track.Environment.PreferredEnvironment = "text";
    Track.Terrain.HasTerrain = true;
}

/// A 1 for each class of data that remains, in order.
static std::string ClassesLeft() {
    const auto& segments = Track.SegmentList.Segments;
    const auto& prefab = Track.PreFabSupports.Nodes;
    std::string left;
    for (const int count :
         {Track.BezierCurve.NodeCount, segments[0].Tunnel + segments[2].Tunnel,
          segments[0].CustomColors + segments[2].CustomColors, Track.FreeNodes.Count,
          Track.FundamentalNodes.Count, prefab[0].SupportCount + prefab[1].SupportCount,
          Track.SupportBeams.Count, Track.WoodCatwalks.Count, int(Track.Terrain.HasTerrain),
          Track.Scenery.TreeCount, Track.SceneryObjects.Count, int(!Track.TrackInfo.AuthorComments.empty()),
          int(!Track.Environment.PreferredEnvironment.empty())})
        left += count > 0 ? '1' : '0';
    return left;
}

TEST_F(Tools, SetTunnelsAndRemoveTheChosenClassAndNoOther) {
    for (const std::string mode : {"toggle 0100", "all 1110", "none 0000"}) {
        Track.SegmentList = {{}, false, 3, List<TrackSegment>(4)}; // the last is beyond the count
        Track.SegmentList.Segments[0].Tunnel = Track.SegmentList.Segments[2].Tunnel = true;
        RunStep("tunnels=" + mode.substr(0, mode.find(' ')));
        std::string flags;
        for (const TrackSegment& segment : Track.SegmentList.Segments)
            flags += segment.Tunnel ? '1' : '0';
        EXPECT_EQ(flags, mode.substr(mode.size() - 4));
    }
    std::istringstream names("track tunnels custom-colors free-nodes fundamental-nodes prefab-supports "
                             "support-beams catwalks terrain trees objects comments environment");
    std::string name, all = "remove=track";
    for (std::size_t i = 0; names >> name; ++i, all += "," + name) {
        FillClasses();
        RunStep("remove=" + name);
        EXPECT_EQ(ClassesLeft(), std::string(i, '1') + '0' + std::string(12 - i, '1'));
        // The segment beyond the curve's nodes is unchanged.
        EXPECT_TRUE(Track.SegmentList.Segments[3].Tunnel && Track.SegmentList.Segments[3].CustomColors);
    }
    FillClasses();
    RunStep(all);
    EXPECT_EQ(ClassesLeft(), "0110000000000"); // stops after the last node
}

/// Three nodes and the given number of segments.
static void SetOpenTrack(std::int32_t segments) {
    SetCurve({{{10, 1, 1}, {11, 1, 1}, {12, 1, 1}, 30, true, false, false},
              {{20, 1, 1}, {21, 1, 1}, {22, 1, 1}, 1, false, true, false},
              {{30, 1, 1}, {31, 1, 1}, {32, 1, 1}, -5, false, false, true}},
             false);
    Track.SegmentList = {{}, false, segments, {}};
    for (std::int32_t i = 0; i <= segments; ++i)
        Track.SegmentList.Segments.emplace_back().Color[0] = i < segments ? ColorValue(i + 1) : 0;
}

/// @return the X of each node's points, its roll, its flag, and the colour of its segment.
static std::string NodesAndSegments() {
    std::ostringstream all;
    for (std::size_t i = 0; i < static_cast<std::size_t>(Track.BezierCurve.NodeCount); ++i) {
        const BezierNode& n = Track.BezierCurve.Nodes[i];
        all << n.Position.X << ' ' << n.ControlIn.X << ' ' << n.ControlOut.X << ' ' << n.Roll
            << " ABC"[n.FlagA + 2 * n.FlagB + 3 * n.FlagC] << Track.SegmentList.Segments[i].Color[0] << "; ";
    }
    return all.str();
}

TEST_F(Tools, LayATrackBackOverItselfAndRunItBackwards) {
    for (const std::int32_t count : {1, 3, 10}) { // a file may hold more or fewer segments than nodes
        SetOpenTrack(count);
        RunStep("shuttle");
        const std::string there = count == 1 ? "10 11 12 30A1; 20 21 22 1B0; 30 31 32 -5C0; "
                                             : "10 11 12 30A1; 20 21 22 1B2; 30 31 32 -5C3; ";
        EXPECT_EQ(NodesAndSegments(), there + "30 32 31 5C0; 20 22 21 -1B0; 10 12 11 -30A0; ");
        EXPECT_TRUE(Track.SegmentList.SegmentCount == 6 && Track.SegmentList.ClosedCircuit);
    }
    SetOpenTrack(3);
    Track.TrackHeader.NumTrains = 3;
    Track.PreFabSupports = {{}, 3, {{1, 0}, {0, 1}, {2, 1}}, {{}, {}, {}}};
    RunStep("backwards");
    EXPECT_EQ(NodesAndSegments(), "30 32 31 5C2; 20 22 21 -1B1; 10 12 11 -30A3; "); // the last segment stays
    const auto& prefab = Track.PreFabSupports.Nodes;
    EXPECT_TRUE(prefab[0].SupportCount + prefab[2].SupportCount == 0 && Track.TrackHeader.NumTrains == 1);
    using S = TrackSegment;
    float S::*const numbers[] = {&S::StationValue4,   &S::StationValue5,   &S::StationValue6,
                                 &S::LiftValue0,      &S::LiftValue1,      &S::LiftValue2,
                                 &S::TransportValue0, &S::TransportValue1, &S::TransportValue2,
                                 &S::BrakeValue2,     &S::BrakeValue3,     &S::BrakeValue4};
    const float turned[] = {7.5F, -0.5F, -10, -17, -78.5332F, -19.6333F, -3, -5, 10, 10, -1, -1};
    TrackSegment tens;
    for (float S::*const number : numbers)
        tens.*number = 10;
    for (; tens.SegmentType < 6; ++tens.SegmentType) {
        Track.SegmentList = {{}, false, 2, {tens, tens}};
        RunStep("backwards");
        for (std::size_t i = 0; i < 12; ++i) {
            const bool own = static_cast<std::int32_t>(i / 3) + 1 == tens.SegmentType;
            EXPECT_FLOAT_EQ(Track.SegmentList.Segments[0].*numbers[i], own ? turned[i] : 10) << i;
            EXPECT_EQ(Track.SegmentList.Segments[1].*numbers[i], 10); // the last one is unchanged
        }
    }
}

class Report : public EmptyDocuments {
protected:
    FilePath file = FilePath::FromUser("gone.nltrack");
    NumberSeparators separators;

    /// Its sections, which are separated by empty lines, with LF line ends.
    std::vector<std::string> Sections() const {
        std::string report = BuildTrackOverview(file, separators, MeasureTrack());
        for (std::size_t end = 0; (end = report.find("\r\n", end)) != std::string::npos;)
            report.replace(end, 2, "\n");
        std::vector<std::string> sections;
        for (std::size_t end = 0; (end = report.find("\n\n")) != std::string::npos; report.erase(0, end + 2))
            sections.push_back(report.substr(0, end));
        sections.push_back(report);
        return sections;
    }
    /// The section that begins with these words.
    std::string Section(const std::string& words) const {
        for (const std::string& section : Sections())
            if (section.starts_with(words))
                return section;
        return "there is none";
    }
};

/// Fills a list with one record per item of `types`.
template <class Record>
static void Fill(List<Record>& list, std::int32_t Record::*type, const std::vector<std::int32_t>& types) {
    list = {};
    for (const std::int32_t one : types)
        list.emplace_back().*type = one;
}

static void PutIntoTunnels(std::initializer_list<std::size_t> segments) {
    for (const std::size_t segment : segments)
        Track.SegmentList.Segments[segment].Tunnel = true;
}

TEST_F(Report, HasAllSectionsInTheirOrder) {
    const char* const words[] = {"File Name...: gone\nFile Size...: 0 bytes.\nFile Version: 0.0.0.0",
                                 "Track Type..........: Steel Looping\nTrack Length",
                                 "Total Segments...: 0\n   Normal...: 0\n",
                                 "Total Free Nodes.......: 0\nTotal Fundamental Nodes: 0",
                                 "Total Support Beams: 0\n   Small",
                                 "Total Wood Catwalks: 0",
                                 "Total Pre-Fabricated Supports: 0\n   Track Nodes",
                                 "Total Trees: 0\n   Type A",
                                 "Total Objects: 0",
                                 "Has Terrain...........: No",
                                 "Prefered Environment: -none-",
                                 "Author's Comments: 1 character(s) long.\nx\n"};
    Track.TrackInfo.AuthorComments = "x";
    const std::vector<std::string> sections = Sections();
    ASSERT_EQ(sections.size(), std::size(words));
    for (std::size_t i = 0; i < sections.size(); ++i)
        EXPECT_TRUE(sections[i].starts_with(words[i])) << sections[i];
}

TEST_F(Report, TellsOfTheFile) {
    const TemporaryFolder folder;
    file = folder.Inside("My.NLTRACK run.nltrack");
    WriteBytes(file.Native(), Bytes(12345));
    separators = {".", ","};
    Track.FileHeader.Version = {1, 3, 0, 7};
    EXPECT_EQ(Section("File"), "File Name...: My run\nFile Size...: 12.345 bytes.\nFile Version: 1.3.7.0");
}

TEST_F(Report, TellsOfTheTrack) {
    separators = {".", ","};
    SetStraightCurve({{-1000, 10.004F, 0}, {2000, 10.004F, 0}, {2000, 70, -80}}, false); // 3000 m and 100 m
    Track.TrackHeader.TrackType = 9, Track.TrackHeader.NumTrains = 1234, Track.TrackHeader.CarsPerTrain = 5;
    EXPECT_EQ(Section("Track Type"), "Track Type..........: Wooden Coaster (Trailored 2 Seat)\n"
                                     "Track Length........: 3.100,00 meters.\n"
                                     "Complete Circut.....: No\n"
                                     "Number of Trains....: 1234\n"
                                     "Cars per Train......: 5\n"
                                     "Lowest Track Height.: 10,00 meters.\n"
                                     "Highest Track Height: 70,00 meters.\n"
                                     "Area Track Requires.: 3.000,00 x 80,00 x 60,00 cubic meters.");
    EXPECT_EQ(TrackTypeName(4) + TrackTypeName(-1) + TrackTypeName(13), "Inverted (4 Seat)");
    separators = {};
    for (const auto& [height, printed] : {std::pair(0.125F, "0.12"), {-0.004F, "0.00"}, {-3.5F, "-3.50"}}) {
        SetStraightCurve({{0, height, 0}, {100, height, 0}}, false);
        EXPECT_NE(Section("Track Type").find(std::string("Lowest Track Height.: ") + printed + " meters.\n"),
                  std::string::npos);
    }
}

TEST_F(Report, CountsSegmentsAndTunnels) {
    Track.SegmentList.SegmentCount = 12; // one less than in the list
    Fill(Track.SegmentList.Segments, &TrackSegment::SegmentType,
         {0, 1, 2, 2, 3, 4, 4, 4, 5, 256, 257, -1, 0});
    PutIntoTunnels({0, 1, 5, 11, 12});
    EXPECT_EQ(Section("Total Segments"), "Total Segments...: 12\n"
                                         "   Normal...: 1\n"
                                         "   Station..: 1\n"
                                         "   Lift.....: 2\n"
                                         "   Transport: 1\n"
                                         "   Brake....: 3\n"
                                         "Tunneled Segments: 4\n"
                                         "Actual Tunnels...: 3");
    // A tunnel across the start of a closed circuit counts as two.
    Track.SegmentList = {{}, true, 6, List<TrackSegment>(7)};
    PutIntoTunnels({0, 1, 3, 5});
    EXPECT_TRUE(Section("Total Segments").ends_with("Tunneled Segments: 4\nActual Tunnels...: 3"));
}

TEST_F(Report, CountsNodesAndBeams) {
    separators = {".", ","};
    Track.FreeNodes.Count = 1001, Track.FundamentalNodes.Count = 2, Track.WoodCatwalks.Count = 3;
    EXPECT_EQ(Section("Total Free"), "Total Free Nodes.......: 1.001\nTotal Fundamental Nodes: 2");
    EXPECT_EQ(Section("Total Wood"), "Total Wood Catwalks: 3");
    Track.SupportBeams.Count = 19;
    Fill(Track.SupportBeams.Items, &SupportBeam::BeamType,
         {0, 1, 1, 2, 2, 2, 3, 4, 4, 5, 6, 6, 7, 8, 9, 9, 9, 9, 10});
    EXPECT_EQ(Section("Total Support Beams"), "Total Support Beams: 19\n"
                                              "   Small...: 3\n"
                                              "   Medium..: 1\n"
                                              "   Large...: 2\n"
                                              "   X Large.: 1\n"
                                              "   XX Large: 2\n"
                                              "   'L' Beam: 1\n"
                                              "   'H' Beam: 2\n"
                                              "   Wood 4x4: 1\n"
                                              "   Wood 2x2: 4\n"
                                              "   Wood 1x4: 1");
}

TEST_F(Report, CountsPrefabricatedSupports) {
    Track.PreFabSupports = {{}, 3, {{2, 0}, {0, 2}, {8, 2}, {}}, {}}; // a node has a count and first index
    Fill(Track.PreFabSupports.Supports, &PreFabSupport::SupportType, {0, 1, 2, 3, 4, 5, 6, 7, 7, -9});
    EXPECT_EQ(Section("Total Pre-Fab"), "Total Pre-Fabricated Supports: 10\n"
                                        "   Track Nodes...: 1\n"
                                        "   Single........: 1\n"
                                        "   Complex.......: 1\n"
                                        "   Inverted......: 1\n"
                                        "   90 Degree Bank: 1\n"
                                        "   Small Inverted: 1\n"
                                        "   'A' Shape.....: 2");
}

TEST_F(Report, CountsTreesAndListsObjects) {
    Track.Scenery.TreeCount = 8;
    Fill(Track.Scenery.Trees, &Tree::TreeType, {0, 1, 2, 2, 3, 3, 3, 4});
    EXPECT_EQ(Section("Total Trees"), "Total Trees: 8\n   Type A: 1\n   Type B: 2\n   Type C: 3");
    Track.SceneryObjects = {{}, 2, List<SceneryObject>(3)};
    Track.SceneryObjects.Items[0].FileName = "caf\xE9.3ds";
    Track.SceneryObjects.Items[1].FileName = "sub\\gate.3ds";
    EXPECT_EQ(Section("Total Objects"),
              "Total Objects: 2\n   Object 001: caf\u00E9.3ds\n   Object 002: sub\\gate.3ds");
}

TEST_F(Report, TellsOfTerrain) {
    separators = {".", ","};
    Track.Terrain.HasTerrain = true, Track.Terrain.GridSizeX = 3, Track.Terrain.GridSizeZ = 1;
    Track.Terrain.Heights = {12.5F, 1234, 13};
    EXPECT_EQ(Section("Has Terrain"), "Has Terrain...........: Yes\n"
                                      "Terrain Grid Size.....: 3 x 1\n"
                                      "Lowest Terrain Height.: 12,5 meters.\n"
                                      "Highest Terrain Height: 1234 meters.");
    separators = {};
    const std::tuple<List<float>, std::string, std::string> cases[] = {
        {{7, 1234567}, "7", "1234567"},     {{0.125F, 100}, "0.13", "100"},
        {{-0.125F, -0.004F}, "-0.13", "0"}, {{-1200.5F, 0.1F}, "-1200.5", "0.1"},
        {{1000, 2000}, "999", "2000"},      {{}, "999", "-999"}};
    for (const auto& [heights, lowest, highest] : cases) {
        Track.Terrain.Heights = heights;
        EXPECT_TRUE(
            Section("Has Terrain")
                .ends_with(": " + lowest + " meters.\nHighest Terrain Height: " + highest + " meters."))
            << Section("Has Terrain");
    }
}

TEST_F(Report, EndsWithTheEnvironmentAndTheComments) {
    Track.Environment.PreferredEnvironment = "Alps";
    Track.TrackInfo.AuthorComments = "Built in M\xFCnchen,\r\nfor fun.";
    EXPECT_EQ(Section("Prefered"), "Prefered Environment: Alps");
    EXPECT_EQ(Section("Author's"),
              "Author's Comments: 27 character(s) long.\nBuilt in M\u00FCnchen,\nfor fun.\n");
}

} // namespace railwright::testing
