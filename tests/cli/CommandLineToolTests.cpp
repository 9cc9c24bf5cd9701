#include "cli/CommandLineTool.h"

#include "geometry/Preview.h"
#include "platform/Paths.h"
#include "platform/svg/SvgPictureBox.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Tracks.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
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
    std::string Out;
    std::string Errors;
};

Outcome Call(std::vector<std::string> arguments) {
    std::ostringstream out;
    std::ostringstream errors;
    const int status = RunCommandLineTool(std::move(arguments), out, errors);
    return {status, out.str(), errors.str()};
}

Outcome Apply(const std::string& file, std::vector<std::string> steps, const std::string& target) {
    steps.insert(steps.begin(), {"apply", file});
    steps.insert(steps.end(), {"-o", target});
    return Call(std::move(steps));
}

Json Dump(const std::string& file) {
    const Outcome dumped = Call({"dump", file});
    EXPECT_EQ(dumped.Status, 0) << dumped.Errors;
    return Json::parse(dumped.Out);
}

std::vector<std::string> LinesOf(const std::string& characters, char end = '\n') {
    std::vector<std::string> lines;
    std::istringstream stream(characters);
    for (std::string line; std::getline(stream, line, end);)
        lines.push_back(line);
    return lines;
}

const std::vector<std::string> Samples = {"harbor-comet.nltrack", "timber-fox.nltrack",
                                          "switchback-spur.nltrack", "banked-turn.nlelem", "loop.nlelem"};

const std::vector<std::string> StepsOfTracks = {"remove=tunnels,custom-colors,free-nodes,fundamental-nodes,"
                                                "prefab-supports,support-beams,catwalks,terrain,"
                                                "trees,objects,comments,environment",
                                                "remove=track",
                                                "move=1,-2.5,1e1,track-only",
                                                "scale=0.5",
                                                "rotate=-45",
                                                "mirror=east-west,track-only",
                                                "tunnels=toggle",
                                                "shuttle",
                                                "backwards",
                                                "smooth",
                                                "rename=1,renamed.3ds"};
const std::vector<std::string> StepsOfElements = {"reverse", "rotate-x=30", "rotate-y=+90", "rotate-z=-1.5"};

bool IsElement(const std::string& file) {
    return file.ends_with(".nlelem");
}

class CommandLine : public testing::EmptyDocuments {
protected:
    TemporaryFolder folder;
    std::string output = folder.File("out.nltrack");

    /// Loads, reports, draws, prints and writes a file once more; it has to come out the same.
    void ExpectSound(const std::string& file) {
        EXPECT_EQ(Call({"report", file}).Status, IsElement(file) ? 1 : 0);
        for (const char* command : {"check", "dump", "polyline"})
            EXPECT_EQ(Call({command, file}).Status, 0) << command;
        SvgPictureBox plan; // drawn here what the last command left: the disk is slow
        SvgPictureBox side;
        (IsElement(file) ? DrawElementPreview : DrawTrackPreview)(plan, side);
        const std::string again = folder.File(IsElement(file) ? "again.nlelem" : "again.nltrack");
        EXPECT_EQ(Apply(file, {}, again).Status, 0);
        EXPECT_EQ(ReadBytes(again), ReadBytes(file));
    }
    /// Saves Track as it is. @return the file.
    std::string Saved() {
        EXPECT_TRUE(SaveTrackFile(folder.Inside("saved.nltrack")));
        return folder.File("saved.nltrack");
    }
};

TEST_F(CommandLine, TellsWhatIsNoCommand) {
    const std::string track = Example(Samples[0]);
    const std::vector<std::string> cases[] = {{},
                                              {"fly"},
                                              {"report"},
                                              {"dump"},
                                              {"dump", track, track},
                                              {"check"},
                                              {"apply", track},
                                              {"preview", track},
                                              {"report", "--bogus", track}};
    for (const auto& arguments : cases) {
        const Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Status, 2);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_NE(outcome.Errors, "");
    }
    EXPECT_EQ(Call({"--help"}).Status, 0);
    EXPECT_EQ(Call({"apply", "--help"}).Status, 0);
}

TEST_F(CommandLine, TellsInOneLineWhatIsWrongWithAFile) {
    const std::string track = Example(Samples[0]);
    const std::string element = Example("loop.nlelem");
    const std::string gone = folder.File("gone.nltrack");
    const std::string broken = folder.File("broken.nltrack");
    testing::WriteBytes(broken, {'N', 'L', 'I', 'M', 0, 0});
    const std::string file = folder.File("file");
    testing::WriteBytes(file, {});
    const std::string nowhere = folder.File("nowhere/out.nltrack");
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"report", gone}, gone + ": no such file"},
        {{"report", element}, element + ": the name does not end in .nltrack"},
        {{"report", broken}, broken + ": NLIM: the file ends too early at byte 6"},
        {{"dump", file}, file + ": the name ends in neither .nltrack nor .nlelem"},
        {{"dump", ""}, ": the name ends in neither .nltrack nor .nlelem"},
        {{"polyline", gone}, gone + ": no such file"},
        {{"preview", gone, "-o", folder.File("drawings")}, gone + ": no such file"},
        {{"preview", track, "-o", file}, file + ": "},
        {{"apply", track, "-o", nowhere}, nowhere + ": cannot be written: "},
        {{"apply", gone, "smooth", "-o", output}, gone + ": no such file"},
    };
    for (const auto& [arguments, expected] : cases) {
        const Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Status, 1) << expected;
        EXPECT_EQ(outcome.Out, "");
        EXPECT_TRUE(outcome.Errors.starts_with("railwright-cli: " + expected)) << outcome.Errors;
        EXPECT_EQ(std::count(outcome.Errors.begin(), outcome.Errors.end(), '\n'), 1);
    }
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"broken.nltrack", "file"}));

    const Outcome mixed = Call({"report", gone, track}); // it goes on behind a failure
    EXPECT_EQ(mixed.Status, 1);
    EXPECT_TRUE(mixed.Out.starts_with("File Name...: harbor-comet\n"));
}

TEST_F(CommandLine, WritesNothingIfAStepDoesNotFit) {
    const std::pair<const char*, const char*> cases[] = {
        {"harbor-comet.nltrack",
         "fly = =1 move move= move=1,2 move=1,2,3,4 move=1,2,x move=1,2,nan move=1e39,0,0 "
         "move=1,2,3,supports "
         "move=1,,2,3 scale= scale=two scale=1,2 scale=track-only rotate=inf rotate=9O mirror mirror=up "
         "mirror= "
         "mirror=north-south,x tunnels tunnels=some remove= remove=moon remove=track, shuttle shuttle=1 "
         "backwards=1 smooth= rename=1 rename=1,abcd rename=0,abcde rename=999,abcde rename=x,abcde "
         "rename=,abcde rename=1, rename=99999999999,abcde rename=1,abcd,this-only reverse rotate-x=90"},
        {"switchback-spur.nltrack", "shuttle"}, // the second one finds a closed circuit
        {"loop.nlelem",
         "move=1,2,3 rotate=90 rotate-y rotate-w=3 rotate-x=90,track-only rotate-z= reverse=1"}};
    for (const auto& [sample, steps] : cases) {
        std::vector<std::string> list = LinesOf(steps, ' ');
        list.emplace_back("");
        for (const std::string& step : list) {
            const std::string own = folder.File(sample);
            testing::WriteBytes(own, ReadBytes(Example(sample)));
            const char* const good = IsElement(sample) ? "reverse" : list.size() > 2 ? "scale=2" : "shuttle";
            const Outcome outcome = Call({"apply", own, good, step, "-o", own});
            EXPECT_EQ(outcome.Status, 1) << step;
            EXPECT_EQ(outcome.Out, "");
            const std::string expected = "railwright-cli: " + own + ": step '" + step + "': ";
            EXPECT_TRUE(outcome.Errors.starts_with(expected)) << outcome.Errors;
            EXPECT_EQ(LinesOf(outcome.Errors).size(), 1U);
            EXPECT_EQ(ReadBytes(own), ReadBytes(Example(sample))) << step;
        }
    }
    EXPECT_EQ(folder.Names().size(), 3U);
}

TEST_F(CommandLine, KeepsEverySampleSoundAfterEveryTool) {
    for (const std::string& sample : Samples)
        for (const std::string& step : IsElement(sample) ? StepsOfElements : StepsOfTracks) {
            const Json document = Dump(Example(sample));
            if ((step == "shuttle" && document["SegmentList"]["ClosedCircuit"] == true) ||
                (step.starts_with("rename") && document["SceneryObjects"]["Count"] == 0))
                continue;
            SCOPED_TRACE(sample + ' ' + step);
            const std::string changed = folder.File(sample);
            ASSERT_EQ(Apply(Example(sample), {step}, changed).Status, 0);
            EXPECT_NE(ReadBytes(changed), ReadBytes(Example(sample)));
            ExpectSound(changed);
        }
}

TEST_F(CommandLine, KeepsToTheRecordsThatThereAreWhereCountsDisagree) {
    const auto segments = [](std::int32_t count) {
        Track.SegmentList.SegmentCount = count;
        Track.SegmentList.Segments.resize(static_cast<std::size_t>(count) + 1);
    };
    const std::function<void()> changes[] = {
        [&] { segments(0); },
        [&] { segments(1); },
        [&] { segments(Track.BezierCurve.NodeCount + 5); },
        [] { Track.PreFabSupports.NodeCount = 1; },
        [] { Track.TrackHeader.NumTrains = 0; },
        [] { Track.BezierCurve.NodeCount = 1; },
        [] { Track.BezierCurve.NodeCount = 2; },
        [] { Track.SegmentList.ClosedCircuit = !Track.SegmentList.ClosedCircuit; },
        ClearTrackDocument,
    };
    for (const char* sample : {"harbor-comet.nltrack", "switchback-spur.nltrack"})
        for (const auto& change : changes) {
            ASSERT_TRUE(LoadTrackFile(PathFromOutside(Example(sample))));
            change();
            const std::string odd = Saved();
            ExpectSound(odd);
            for (const std::string& step : StepsOfTracks)
                if (Apply(odd, {step, "backwards", "remove=prefab-supports,tunnels,custom-colors"}, output)
                        .Status == 0) {
                    EXPECT_EQ(Call({"report", output}).Status, 0);
                }
        }

    // A root of its own, without any other chunk: backwards gives it a train.
    std::vector<unsigned char> root = {'N', 'L', 'I', 'M', 28, 0, 0, 0, 1, 3};
    root.resize(32);
    testing::WriteBytes(folder.File("root.nltrack"), root);
    ASSERT_EQ(Apply(folder.File("root.nltrack"), {"backwards", "smooth", "shuttle"}, output).Status, 0);
    ExpectSound(output);
    EXPECT_EQ(Dump(output)["TrackHeader"]["Trains"].size(), 1U);
}

TEST_F(CommandLine, BringsATrackBackByMirrorsAndQuarterTurns) {
    for (const std::string& sample : Samples) {
        if (IsElement(sample))
            continue;
        for (const char* mirror : {"mirror=north-south", "mirror=east-west"}) {
            EXPECT_EQ(Apply(Example(sample), {mirror, mirror}, output).Status, 0);
            EXPECT_EQ(ReadBytes(output), ReadBytes(Example(sample)));
        }
        EXPECT_EQ(Apply(Example(sample), {"rotate=90"}, output).Status, 0);
        for (int turn = 0; turn < 3; ++turn) // over the same file
            EXPECT_EQ(Apply(output, {"rotate=90"}, output).Status, 0);
        const Json before = Dump(Example(sample));
        Json after = Dump(output);
        for (std::size_t i = 0; i < before["BezierCurve"]["Nodes"].size(); ++i)
            for (const char* point : {"Position", "ControlIn", "ControlOut"})
                for (std::size_t k = 0; k < 3; ++k)
                    EXPECT_NEAR(after["BezierCurve"]["Nodes"][i][point][k].get<float>(),
                                before["BezierCurve"]["Nodes"][i][point][k].get<float>(), 1e-3F);
    }
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.nltrack"});
}

TEST_F(CommandLine, ChangesWhatTwiceBackwardsShouldAndNothingElse) {
    const std::tuple<int, const char*, float> factors[] = {
        {1, "StationValue5", 0.0025F}, {1, "StationValue4", 0.5625F}, {2, "LiftValue0", 2.89F},
        {3, "TransportValue1", 0.25F}, {3, "TransportValue0", 0.09F}, {4, "BrakeValue4", 0.01F},
        {4, "BrakeValue3", 0.01F}};
    for (const char* sample : {"harbor-comet.nltrack", "timber-fox.nltrack", "switchback-spur.nltrack"}) {
        ASSERT_EQ(Apply(Example(sample), {"backwards", "backwards"}, output).Status, 0);
        Json expected = Dump(Example(sample));
        const Json after = Dump(output);
        Json& segments = expected["SegmentList"]["Segments"];
        for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
            const Json& changed = after["SegmentList"]["Segments"][i];
            for (const auto& [type, value, factor] : factors)
                if (segments[i]["SegmentType"] == type) {
                    EXPECT_FLOAT_EQ(changed[value].get<float>(), segments[i][value].get<float>() * factor);
                    segments[i][value] = changed[value];
                }
            if (segments[i]["SegmentType"] == 2) {
                segments[i]["LiftValue1"] = -78.5332F;
                segments[i]["LiftValue2"] = -19.6333F;
            }
        }
        expected["TrackHeader"]["NumTrains"] = 1;
        expected["TrackHeader"]["Trains"].erase(expected["TrackHeader"]["Trains"].begin() + 1,
                                                expected["TrackHeader"]["Trains"].end());
        for (Json& node : expected["PreFabSupports"]["Nodes"])
            node = {{"SupportCount", 0}, {"Supports", Json::array()}};
        EXPECT_EQ(Json::diff(expected, after), Json::array());
    }
}

TEST_F(CommandLine, RenamesObjectsByTheirNumber) {
    Track.SceneryObjects.Count = 3;
    Track.SceneryObjects.Items.resize(4);
    for (std::size_t i = 0; i < 3; ++i)
        Track.SceneryObjects.Items[i].FileName = "Tree.3ds";
    const std::string saved = Saved();
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"rename=2,a,b,c", {"a,b,c", "a,b,c", "a,b,c"}},
        {"rename=2,a,b,c,this-only", {"Tree.3ds", "a,b,c", "Tree.3ds"}},
        {"rename=3,caf\u00E9\u4E00,this-only", {"Tree.3ds", "Tree.3ds", "caf\u00E9?"}}};
    for (const auto& [step, names] : cases) {
        ASSERT_EQ(Apply(saved, {step}, output).Status, 0);
        const Json objects = Dump(output)["SceneryObjects"]["Items"];
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(objects[i]["FileName"], names[i]);
    }
}

TEST_F(CommandLine, ChecksEachFileInALine) {
    const std::string track = Example(Samples[0]);
    const std::string cut = folder.File("cut.nlelem");
    std::vector<unsigned char> bytes = ReadBytes(Example("loop.nlelem"));
    bytes.resize(100);
    testing::WriteBytes(cut, bytes);
    const std::string gone = folder.File("gone.nltrack");
    const Outcome outcome = Call({"check", track, cut, gone, Example("loop.nlelem")});
    EXPECT_EQ(outcome.Status, 1);
    const std::vector<std::string> lines = LinesOf(outcome.Out);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], track + ": ok");
    EXPECT_TRUE(lines[1].starts_with(cut + ": ELEM: ") && lines[1].find(" at byte ") < lines[1].size());
    EXPECT_EQ(lines[2], gone + ": no such file at byte 0");
    EXPECT_EQ(lines[3], Example("loop.nlelem") + ": ok");
    EXPECT_EQ(Call({"check", track}).Status, 0);
}

TEST_F(CommandLine, ReportsWithTheSeparatorsAskedFor) {
    testing::SetStraightCurve({{-1000, 1, 0}, {1000, 1, 0}}, false);
    Track.TrackInfo.AuthorComments = "one\r\ntwo\rthree";
    const std::string saved = Saved();
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--group", ".", "--decimal", ","}, "2.000,00 meters."},
        {{"--group", ",", "--decimal", "."}, "2,000.00 meters."},
        {{"--group", "", "--decimal", "\u066B"}, "2000\u066B00 meters."}};
    for (auto [arguments, expected] : cases) {
        arguments.insert(arguments.end(), {"report", saved});
        std::rotate(arguments.begin(), arguments.end() - 2, arguments.end());
        const Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
        EXPECT_NE(outcome.Out.find(std::string("\nTrack Length........: ") + expected + '\n'),
                  std::string::npos)
            << outcome.Out;
        EXPECT_TRUE(outcome.Out.ends_with("14 character(s) long.\none\ntwo\rthree\n"));
    }
}

TEST_F(CommandLine, PrintsTheCurveAsCsv) {
    testing::SetStraightCurve({{0.1F, 2.5F, 0}, {0.1F, 2.5F, 300}}, true);
    const std::vector<std::string> track = LinesOf(Call({"polyline", Saved()}).Out);
    ASSERT_EQ(track.size(), 1 + 201 + 1U);
    EXPECT_EQ(track[0], "x,y,z,node");
    EXPECT_EQ(track[1], "0.1,2.5,0,0");
    EXPECT_TRUE(track[201].ends_with(",1"));
    EXPECT_EQ(track[202], "0.1,2.5,0,"); // the closing copy belongs to no node

    const Json nodes = Dump(Example("loop.nlelem"));
    const std::vector<std::string> element = LinesOf(Call({"polyline", Example("loop.nlelem")}).Out);
    EXPECT_EQ(element.size(), 1 + 19 * nodes["NodeCount"].get<std::size_t>() + 1);
    EXPECT_EQ(element[0], "x,y,z");
    EXPECT_EQ(element[1], "0,0,0");
}

TEST_F(CommandLine, DrawsIntoANewFolder) {
    EXPECT_EQ(Call({"preview", Example("loop.nlelem"), "-o", folder.File("a/b")}).Status, 0);
    for (const char* name : {"a/b/plan.svg", "a/b/side.svg"}) {
        const auto bytes = ReadBytes(folder.File(name));
        const std::string drawing(bytes.begin(), bytes.end());
        EXPECT_TRUE(drawing.starts_with("<svg ") && drawing.ends_with("</svg>\n"));
        EXPECT_NE(drawing.find("r=\"1.5\" fill=\"#ffff00\"/>"), std::string::npos);
    }
}

TEST_F(CommandLine, DumpsTheWholeDocument) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinite = std::numeric_limits<float>::infinity();
    testing::SetCurve({{{1, 2.5F, -3}, {nan, 0, 0}, {infinite, -infinite, 0}, 0.1F, true, false, true}},
                      false);
    Track.SegmentList.Segments[0].SegmentType = SegmentKind::Lift;
    Track.SegmentList.Segments[0].LiftValue1 = 8;
    Track.SegmentList.Segments[0].Color[1] = 0x123456;
    Track.TrackInfo.AuthorComments = "\xE9\x80\"\n";
    Track.PreFabSupports.NodeCount = 2;
    Track.PreFabSupports.Nodes = {{0, 0}, {2, 0}, {}};
    Track.PreFabSupports.Supports = {{3, 1}, {4, 2}};
    Track.Terrain.HasTerrain = true;
    Track.Terrain.GridSizeX = 2;
    Track.Terrain.GridSizeZ = 3;
    Track.Terrain.Heights = {0, 1, 10, 11, 20, 21};
    const Json document = Dump(Saved());
    EXPECT_EQ(document.size(), 15U);
    const Json& node = document["BezierCurve"]["Nodes"].at(0);
    EXPECT_EQ(node["Position"], (Json{1, 2.5, -3}));
    EXPECT_EQ(node["ControlIn"], (Json{"nan", 0, 0}));
    EXPECT_EQ(node["ControlOut"], (Json{"inf", "-inf", 0}));
    EXPECT_EQ(node["Roll"].get<float>(), 0.1F);
    EXPECT_EQ((Json{node["FlagA"], node["FlagB"], node["FlagC"]}), (Json{true, false, true}));
    EXPECT_EQ(document["BezierCurve"]["Nodes"].size(), 1U);
    const Json& segment = document["SegmentList"]["Segments"].at(0);
    EXPECT_EQ(segment["LiftValue1"], 8);
    EXPECT_EQ(segment["Color"], (Json{0, 0x123456, 0}));
    EXPECT_EQ(segment["BrakeFlag5"], false); // all fields are there, whatever the kind
    EXPECT_EQ(document["TrackInfo"]["AuthorComments"], "\u00E9\u20AC\"\n");
    EXPECT_EQ(document["PreFabSupports"]["Nodes"].at(1)["Supports"].at(1)["SupportType"], 4);
    EXPECT_EQ(document["Terrain"]["Heights"], (Json{{0, 10, 20}, {1, 11, 21}}));

    const Json element = Dump(Example("banked-turn.nlelem"));
    EXPECT_EQ(element["Nodes"].size(), element["NodeCount"].get<std::size_t>() + 1);
    EXPECT_EQ(element["Nodes"][0]["Position"], (Json{0, 0, 0}));
}

} // namespace
} // namespace railwright
