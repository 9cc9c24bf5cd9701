#include "cli/CommandLineTool.h"

#include "cli/Steps.h"
#include "platform/Paths.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Tracks.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <limits>
#include <sstream>

namespace railwright {
namespace {

using Json = nlohmann::json;
using testing::Example;
using testing::ReadBytes;
using testing::TemporaryFolder;

struct Outcome {
    int Status;
    std::string Out, Errors;
};

Outcome Call(std::vector<std::string> arguments) {
    std::ostringstream out, errors;
    const int status = RunCommandLineTool(std::move(arguments), out, errors);
    return {status, out.str(), errors.str()};
}

Json Dump(const std::string& file) {
    const Outcome dumped = Call({"dump", file});
    EXPECT_EQ(dumped.Status, 0) << dumped.Errors;
    return Json::parse(dumped.Out);
}

/// What `characters` consists of, between the characters `end`.
std::vector<std::string> Split(const std::string& characters, char end) {
    std::vector<std::string> pieces;
    std::istringstream stream(characters);
    for (std::string piece; std::getline(stream, piece, end);)
        pieces.push_back(piece);
    return pieces;
}

class CommandLine : public testing::EmptyDocuments {
protected:
    TemporaryFolder folder;
    const std::string track = Example("harbor-comet.nltrack");
    const std::string element = Example("loop.nlelem");
    const std::string output = folder.File("out.nltrack");

    /// Reads, reports, prints, draws and writes a file once more; it has to come out the same.
    void ExpectSound(const std::string& file) {
        const bool isElement = file.ends_with(".nlelem");
        for (const char* command : {"check", "dump", "polyline", "report"})
            EXPECT_EQ(Call({command, file}).Status, isElement && command[0] == 'r' ? 1 : 0) << command;
        const std::vector<unsigned char> bytes = ReadBytes(file);
        EXPECT_EQ(Call({"apply", file, "-o", file}).Status, 0);
        EXPECT_EQ(ReadBytes(file), bytes);
    }
    /// Saves Track as it is. @return the file.
    std::string Saved() {
        EXPECT_TRUE(SaveTrackFile(folder.Inside("saved.nltrack")));
        return folder.File("saved.nltrack");
    }
};

TEST_F(CommandLine, TellsWhatIsNoCommand) {
    for (const char* const words :
         {"", "fly", "report", "dump a b", "check", "apply a", "preview a", "report --no a"}) {
        const Outcome outcome = Call(Split(words, ' '));
        EXPECT_TRUE(outcome.Status == 2 && outcome.Out.empty() && !outcome.Errors.empty()) << words;
    }
    EXPECT_EQ(Call({"apply", "--help"}).Status, 0);
}

TEST_F(CommandLine, TellsInOneLineWhatIsWrongWithAFile) {
    const std::string gone = folder.File("gone.nltrack"), broken = folder.File("broken.nltrack");
    const std::string file = folder.File("file"), nowhere = folder.File("nowhere/out.nltrack");
    testing::WriteBytes(broken, {'N', 'L', 'I', 'M', 0, 0});
    testing::WriteBytes(file, {});
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"report", element}, element + ": the name does not end in .nltrack"},
        {{"report", broken}, broken + ": NLIM: the file ends too early at byte 6"},
        {{"dump", file}, file + ": the name ends in neither .nltrack nor .nlelem"},
        {{"polyline", gone}, gone + ": no such file"},
        {{"preview", gone, "-o", folder.File("drawings")}, gone + ": no such file"},
        {{"preview", track, "-o", file}, file + ": "},
        {{"apply", track, "-o", nowhere}, nowhere + ": cannot be written: "},
        {{"apply", gone, "smooth", "-o", output}, gone + ": no such file"}};
    for (const auto& [arguments, expected] : cases) {
        const Outcome outcome = Call(arguments);
        EXPECT_TRUE(outcome.Status == 1 && outcome.Out.empty()) << expected;
        EXPECT_TRUE(outcome.Errors.starts_with("railwright-cli: " + expected)) << outcome.Errors;
        EXPECT_EQ(Split(outcome.Errors, '\n').size(), 1U);
    }
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"broken.nltrack", "file"}));

    const Outcome mixed = Call({"report", gone, track}); // it goes on behind a failure
    EXPECT_TRUE(mixed.Status == 1 && mixed.Out.starts_with("File Name...: harbor-comet\n"));
    const Outcome checked = Call({"check", track, broken, gone});
    EXPECT_EQ(checked.Status, 1);
    EXPECT_EQ(checked.Out, track + ": ok\n" + broken + ": NLIM: the file ends too early at byte 6\n" + gone +
                               ": no such file at byte 0\n");
}

TEST_F(CommandLine, WritesNothingIfAStepDoesNotFit) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        // sample, a step that fits, bad steps
        {"harbor-comet.nltrack", "scale=2",
         "fly = =1 move move= move=1,2 move=1,2,3,4 move=1,2,x move=1,2,nan move=1e39,0,0 move=1,,2,3 "
         "move=1,2,3,supports scale= scale=two scale=1,2 scale=track-only rotate=inf rotate=9O mirror "
         "mirror=up mirror= mirror=north-south,x tunnels tunnels=some remove= remove=moon remove=track, "
         "shuttle shuttle=1 backwards=1 smooth= rename=1 rename=1,abcd rename=0,abcde rename=999,abcde "
         "rename=x,abcde rename=,abcde rename=1, rename=99999999999,abcde rename=1,abcd,this-only reverse  "
         "rotate-x=90"},
        {"switchback-spur.nltrack", "shuttle", "shuttle"}, // the second one finds a closed circuit
        {"loop.nlelem", "reverse",
         "move=1,2,3 rotate=90 rotate-y rotate-w=3 rotate-x=90,track-only rotate-z= reverse=1"}};
    for (const auto& [sample, good, steps] : cases) {
        const std::string own = folder.File(sample);
        testing::WriteBytes(own, ReadBytes(Example(sample)));
        for (const std::string& step : Split(steps, ' ')) {
            const Outcome outcome = Call({"apply", own, good, step, "-o", own});
            EXPECT_TRUE(outcome.Status == 1 && outcome.Out.empty()) << step;
            const std::string expected = "railwright-cli: " + own + ": step '" + step + "': ";
            EXPECT_TRUE(outcome.Errors.starts_with(expected)) << outcome.Errors;
            EXPECT_EQ(Split(outcome.Errors, '\n').size(), 1U);
            EXPECT_EQ(ReadBytes(own), ReadBytes(Example(sample))) << step;
        }
    }
    EXPECT_EQ(folder.Names().size(), 3U);
}

const std::string ToolsOfTracks = "move=1,-2.5,1e1,track-only scale=0.5 rotate=-45 mirror=east-west "
                                  "tunnels=toggle smooth backwards";

TEST_F(CommandLine, KeepsEverySampleSoundBehindEveryTool) {
    const std::pair<std::string, std::string> chains[] = {
        {"harbor-comet.nltrack", ToolsOfTracks},
        {"harbor-comet.nltrack", "rename=1,renamed.3ds"},
        {"timber-fox.nltrack", ToolsOfTracks},
        {"timber-fox.nltrack", "remove=tunnels,custom-colors,free-nodes,fundamental-nodes,prefab-supports,"
                               "support-beams,catwalks,terrain,trees,objects,comments,environment"},
        {"switchback-spur.nltrack", ToolsOfTracks + " shuttle smooth backwards"},
        {"switchback-spur.nltrack", "remove=track"},
        {"banked-turn.nlelem", "reverse rotate-x=30 rotate-y=+90 rotate-z=-1.5"},
        {"loop.nlelem", "reverse"}};
    for (const auto& [sample, chain] : chains) {
        SCOPED_TRACE(sample + ' ' + chain);
        const std::string changed = folder.File(sample);
        std::vector<std::string> arguments = {"apply", Example(sample), "-o", changed};
        for (const std::string& step : Split(chain, ' '))
            arguments.push_back(step);
        ASSERT_EQ(Call(arguments).Status, 0);
        EXPECT_NE(ReadBytes(changed), ReadBytes(Example(sample)));
        ExpectSound(changed);
    }
    for (const std::string mirror : {"mirror=north-south", "mirror=east-west"}) {
        EXPECT_EQ(Call({"apply", track, mirror, mirror, "-o", output}).Status, 0);
        EXPECT_EQ(ReadBytes(output), ReadBytes(track));
    }
}

TEST_F(CommandLine, KeepsToTheRecordsThatThereAreWhereCountsDisagree) {
    const auto tools =
        Split(ToolsOfTracks + " remove=prefab-supports,tunnels,custom-colors shuttle smooth", ' ');
    const auto change = [](std::int32_t& count, auto& list, char to) { // to a digit, or 60 for an l
        if (to != '9')
            list.resize(static_cast<std::size_t>(count = to - '0') + 1);
    };
    // Segments, nodes, nodes with supports and trains.
    for (const char* counts : {"0999", "1999", "l999", "9099", "9199", "9299", "9919", "9990"})
        for (const char* sample : {"harbor-comet.nltrack", "switchback-spur.nltrack"}) {
            ASSERT_TRUE(LoadTrackFile(PathFromOutside(Example(sample))));
            change(Track.SegmentList.SegmentCount, Track.SegmentList.Segments, counts[0]);
            change(Track.BezierCurve.NodeCount, Track.BezierCurve.Nodes, counts[1]);
            change(Track.PreFabSupports.NodeCount, Track.PreFabSupports.Nodes, counts[2]);
            change(Track.TrackHeader.NumTrains, Track.TrackHeader.Trains, counts[3]);
            ExpectSound(Saved());
            EXPECT_EQ(ApplyTrackSteps(tools).Done, !Track.SegmentList.ClosedCircuit || sample[0] == 's');
            ExpectSound(Saved());
        }
    ClearTrackDocument(); // a root of its own, without any other chunk: backwards gives it a train
    ASSERT_EQ(Call({"apply", Saved(), "backwards", "-o", output}).Status, 0);
    EXPECT_EQ(Dump(output)["TrackHeader"]["Trains"].size(), 1U);
}

TEST_F(CommandLine, RenamesObjectsByTheirNumberAndThoseOfTheSameName) {
    // e with acute in both cases, the division sign (whose byte is 0x20 above the multiplication sign), and
    // S with caron, which lies apart from the other letters.
    const text names[] = {"CAF\xC9.3ds", "caf\xE9.3DS", "cafe.3ds", "x\xD7.3ds",
                          "x\xF7.3ds",   "\x8A.3ds",    "\x9A.3ds", "caf\xE9.3ds "};
    Track.SceneryObjects = {{}, 8, std::vector<SceneryObject>(9)};
    for (std::size_t i = 0; i < 8; ++i)
        Track.SceneryObjects.Items[i].FileName = names[i];
    const std::string saved = Saved();
    const std::pair<std::string, const char*> cases[] = {
        {"1", "11000000"}, {"2", "01000000"}, {"4", "00010000"}, {"7", "00000110"}};
    for (const auto& [step, renamed] : cases) {
        ASSERT_EQ(
            Call({"apply", saved, "rename=" + step + ",a,b,\u00E9\u4E00" + (step == "2" ? ",this-only" : ""),
                  "-o", output})
                .Status,
            0);
        std::string flags;
        const Json dumped = Dump(output);
        for (const Json& object : dumped["SceneryObjects"]["Items"])
            flags += object["FileName"] == "a,b,\u00E9?" ? '1' : '0';
        EXPECT_EQ(flags, renamed) << step;
    }
}

TEST_F(CommandLine, ReportsWithTheSeparatorsAskedFor) {
    testing::SetStraightCurve({{-1000, 1, 0}, {1000, 1, 0}}, false);
    Track.TrackInfo.AuthorComments = "one\r\ntwo\rthree";
    const Outcome outcome = Call({"report", Saved(), "--group", ".", "--decimal", "\u066B"});
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_NE(outcome.Out.find("\nTrack Length........: 2.000\u066B00 meters.\n"), std::string::npos);
    EXPECT_TRUE(outcome.Out.ends_with("14 character(s) long.\none\ntwo\rthree\n"));
}

TEST_F(CommandLine, PrintsTheCurveAsCsv) {
    testing::SetStraightCurve({{0.1F, 2.5F, 0}, {0.1F, 2.5F, 300}}, true);
    const std::vector<std::string> lines = Split(Call({"polyline", Saved()}).Out, '\n');
    ASSERT_EQ(lines.size(), 1 + 201 + 1U);
    EXPECT_EQ(lines[0] + ' ' + lines[1], "x,y,z,node 0.1,2.5,0,0");
    EXPECT_TRUE(lines[201].ends_with(",1"));
    EXPECT_EQ(lines[202], "0.1,2.5,0,"); // the closing copy belongs to no node
    EXPECT_TRUE(Call({"polyline", element}).Out.starts_with("x,y,z\n0,0,0\n"));
}

TEST_F(CommandLine, DrawsIntoANewFolder) {
    EXPECT_EQ(Call({"preview", element, "-o", folder.File("a/b")}).Status, 0);
    const auto plan = ReadBytes(folder.File("a/b/plan.svg")), side = ReadBytes(folder.File("a/b/side.svg"));
    EXPECT_TRUE(std::string(plan.begin(), plan.end()).ends_with("fill=\"#ffffff\"/>\n</svg>\n"));
    EXPECT_TRUE(plan != side && !side.empty());
}

TEST_F(CommandLine, DumpsTheWholeDocument) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinite = std::numeric_limits<float>::infinity();
    testing::SetCurve({{{1, 2.5F, -3}, {nan, 0, 0}, {infinite, -infinite, 0}, 0.5F, true, false, true}},
                      false);
    TrackSegment& segment = Track.SegmentList.Segments[0];
    segment.SegmentType = SegmentKind::Lift, segment.LiftValue1 = 8, segment.Color[1] = 0x123456;
    Track.TrackInfo.AuthorComments = "\xE9\x80\"\n";
    Track.PreFabSupports = {{}, 2, {{0, 0}, {2, 0}, {}}, {{3, 1}, {4, 2}}};
    TerrainRecord& terrain = Track.Terrain;
    terrain.HasTerrain = true, terrain.GridSizeX = 2, terrain.GridSizeZ = 3;
    terrain.Heights = {0, 1, 10, 11, 20, 21};
    const Json document = Dump(Saved());
    EXPECT_EQ(document.size(), 15U);
    EXPECT_EQ(document["BezierCurve"]["Nodes"], Json::parse(R"([{"Position": [1, 2.5, -3],
        "ControlIn": ["nan", 0, 0], "ControlOut": ["inf", "-inf", 0], "Roll": 0.5,
        "FlagA": true, "FlagB": false, "FlagC": true}])"));
    const Json& lift = document["SegmentList"]["Segments"].at(0);
    EXPECT_TRUE(lift["LiftValue1"] == 8 && lift["Color"] == (Json{0, 0x123456, 0}));
    EXPECT_EQ(lift["BrakeFlag5"], false); // all fields are there, whatever the kind
    EXPECT_EQ(document["TrackInfo"]["AuthorComments"], "\u00E9\u20AC\"\n");
    EXPECT_EQ(document["PreFabSupports"]["Nodes"].at(1)["Supports"].at(1)["SupportType"], 4);
    EXPECT_EQ(document["Terrain"]["Heights"], (Json{{0, 10, 20}, {1, 11, 21}}));

    const Json dumped = Dump(element);
    EXPECT_EQ(dumped["Nodes"].size(), dumped["NodeCount"].get<std::size_t>() + 1);
    EXPECT_EQ(dumped["Nodes"][0]["Position"], (Json{0, 0, 0}));
}

} // namespace
} // namespace railwright
