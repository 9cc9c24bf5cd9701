#include "cli/CommandLineTool.h"

#include "cli/Steps.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Tracks.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <sstream>

namespace railwright::testing {

using Json = nlohmann::json;

struct Outcome {
    int Status;
    std::string Out, Errors;
};

static Outcome Call(std::vector<std::string> arguments) {
    std::ostringstream out, errors;
    const int status = RunCommandLineTool(std::move(arguments), out, errors);
    return {status, out.str(), errors.str()};
}

static Json Dump(const std::string& file) {
    return Json::parse(Call({"dump", file}).Out);
}

/// Splits `characters` at each `end`.
static std::vector<std::string> Split(const std::string& characters, char end) {
    std::vector<std::string> pieces;
    std::istringstream stream(characters);
    for (std::string piece; std::getline(stream, piece, end);)
        pieces.push_back(piece);
    return pieces;
}

class CommandLine : public EmptyDocuments {
protected:
    TemporaryFolder folder;
    const std::string track = Example("harbor-comet.nltrack");
    const std::string element = Example("loop.nlelem");
    const std::string output = folder.File("out.nltrack");

    /// Runs every command on a file. Writing it again must not change it.
    void ExpectSound(const std::string& file) {
        const bool isElement = file.ends_with(".nlelem");
        for (const char* command : {"check", "dump", "polyline", "report"})
            EXPECT_EQ(Call({command, file}).Status, isElement && command[0] == 'r' ? 1 : 0) << command;
        const Bytes bytes = ReadBytes(file);
        EXPECT_EQ(Call({"apply", file, "-o", file}).Status, 0);
        EXPECT_EQ(ReadBytes(file), bytes);
    }
    /// Saves Track.
    /// @return the path.
    std::string Saved() {
        EXPECT_TRUE(SaveTrackFile(folder.Inside("saved.nltrack")));
        return folder.File("saved.nltrack");
    }
};

TEST_F(CommandLine, HelpShowsExamplesThatWork) {
    const auto before = std::filesystem::current_path();
    std::filesystem::copy(RAILWRIGHT_EXAMPLES, folder.Path(), std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(folder.File("NoLimits/Environments"));
    std::filesystem::current_path(folder.Path());
    for (const char* command : {"report", "dump", "polyline", "preview", "apply", "check", "organize"}) {
        const std::string help = Call({command, "--help"}).Out, begin = "Example: railwright-cli ";
        const std::size_t example = help.find(begin + command + ' ');
        ASSERT_NE(example, std::string::npos) << help;
        const std::string line = Split(help.substr(example + begin.size()), '\n').front();
        // The part from ">" on is for the shell.
        const Outcome outcome = Call(Split(line.substr(0, line.find(" >")), ' '));
        EXPECT_TRUE(outcome.Status == 0 && outcome.Errors.empty()) << line << '\n' << outcome.Errors;
    }
    std::filesystem::current_path(before);
    EXPECT_TRUE(FileExists(folder.Inside("drawings\\plan.svg")));
    EXPECT_TRUE(FileExists(folder.Inside("there-and-back.nltrack")));
}

TEST_F(CommandLine, TellsWhatIsNoCommandAndInOneLineWhatIsWrongWithAFile) {
    for (const char* words :
         {"", "fly", "report", "dump a b", "check", "apply a", "preview a", "report --no a"}) {
        const Outcome outcome = Call(Split(words, ' '));
        EXPECT_TRUE(outcome.Status == 2 && outcome.Out.empty() && !outcome.Errors.empty()) << words;
    }
    for (const char* command : {"apply", "preview"}) // an empty file name
        EXPECT_EQ(Call({command, track, "-o", ""}).Status, 2);
    EXPECT_EQ(Call({"report", track, "--decimal", ""}).Status, 2); // 10.9 would read 109
    const std::string gone = folder.File("gone.nltrack"), broken = folder.File("broken.nltrack"),
                      taken = folder.File("taken.nltrack"), file = folder.File("file"),
                      nowhere = folder.File("nowhere/out.nltrack");
    WriteBytes(broken, {'N', 'L', 'I', 'M', 0, 0});
    WriteBytes(file, {});
    std::filesystem::create_directory(taken);
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"report", element}, element + ": an element has no report"},
        {{"report", broken}, broken + ": NLIM: the file ends too early at byte 6"},
        {{"dump", file}, file + ": the name ends in neither .nltrack nor .nlelem"},
        {{"preview", gone, "-o", folder.File("drawings")}, gone + ": no such file"},
        {{"report", taken}, taken + ": is a folder"},
        {{"apply", track, "-o", taken}, taken + ": is a folder"},
        {{"preview", track, "-o", file}, file + ": "},
        {{"apply", track, "-o", nowhere}, nowhere + ": cannot be written: "},
        {{"apply", track, "-o", folder.File("")}, folder.File("") + ": names no file"},
        {{"apply", track, "-o", folder.File("..")}, folder.File("..") + ": names no file"},
        {{"organize", ""}, ": no folder is named"},
        {{"organize", gone}, gone + ": no such folder"},
        {{"organize", file}, file + ": is not a folder"},
        {{"apply", gone, "-o", output}, gone + ": no such file"}};
    for (const auto& [arguments, expected] : cases) {
        const Outcome outcome = Call(arguments);
        EXPECT_TRUE(outcome.Status == 1 && outcome.Out.empty()) << expected;
        EXPECT_TRUE(outcome.Errors.starts_with("railwright-cli: " + expected)) << outcome.Errors;
        EXPECT_FALSE(outcome.Errors.ends_with(" at byte 0\n"));
        EXPECT_EQ(Split(outcome.Errors, '\n').size(), 1U);
    }
    EXPECT_EQ(folder.Names(), (Names{"broken.nltrack", "file", "taken.nltrack"}));
    const Outcome mixed = Call({"report", gone, track}); // continues after a failure
    EXPECT_TRUE(mixed.Status == 1 && mixed.Out.starts_with("File Name...: harbor-comet\n"));
    const Outcome checked = Call({"check", track, broken, gone, "[a,b]"});
    EXPECT_EQ(checked.Out, track + ": ok\n" + broken + ": NLIM: the file ends too early at byte 6\n" + gone +
                               ": no such file\n[a,b]: the name ends in neither .nltrack nor .nlelem\n");
    EXPECT_EQ(checked.Status, 1);
}

TEST_F(CommandLine, SuggestsTheNameThatIsNearestToWhatWasTyped) {
    const std::pair<std::string, std::string> near[] = {
        {"rport", "report"}, {"repoort", "report"}, {"repart", "report"},      {"reprot", "report"},
        {"DUMP", "dump"},    {"aply x", "apply"},   {"Organise o", "organize"}};
    for (const auto& [words, meant] : near) {
        const Outcome outcome = Call(Split(words, ' '));
        EXPECT_NE(outcome.Errors.find(", did you mean '" + meant + "'?\n"), std::string::npos) << words;
        EXPECT_EQ(outcome.Status, 2);
    }
    for (const std::string& words : {std::string("fly"), std::string("dmpu"), std::string("--grou"),
                                     std::string(), std::string(100'000, 'x')})
        EXPECT_EQ(Call({words}).Errors.find("did you mean"), std::string::npos) << words.substr(0, 9);
    const std::tuple<std::string, std::string, std::string> steps[] = {
        {track, "mvoe=1,2,3", "a track, did you mean 'move'?"},
        {track, "ROTAT", "a track, did you mean 'rotate'?"},
        {track, "backward=1", "a track, did you mean 'backwards'?"},
        {track, "fly", "a track"},
        {track, "revrse", "a track"}, // a step for elements
        {element, "revrse", "an element, did you mean 'reverse'?"},
        {element, "rotatey=9", "an element, did you mean 'rotate-y'?"}};
    for (const auto& [file, step, expected] : steps)
        EXPECT_EQ(Call({"apply", file, step, "-o", output}).Errors,
                  "railwright-cli: " + file + ": step '" + step + "': there is no such step for " + expected +
                      "\n");
}

#ifndef _WIN32
TEST_F(CommandLine, TakesNamesAsTheyAreAndShowsThemInOneLine) {
    const std::string odd = folder.File("a\\b\n\x1B.nltrack"),
                      shown = folder.File("a\\b\uFFFD\uFFFD.nltrack");
    EXPECT_EQ(Call({"apply", track, "-o", odd}).Status, 0);
    EXPECT_EQ(ReadBytes(odd), ReadBytes(track));
    EXPECT_EQ(Call({"check", odd}).Out, shown + ": ok\n");
    EXPECT_TRUE(Call({"report", odd}).Out.starts_with("File Name...: a\\b\uFFFD\uFFFD\n"));
    EXPECT_EQ(Call({"check", odd + "x.nltrack"}).Out, shown + "x.nltrack: no such file\n");
    EXPECT_EQ(Call({"apply", odd, "a\nb", "-o", odd}).Errors.find('\n'),
              Call({"apply", odd, "a\nb", "-o", odd}).Errors.size() - 1);
    EXPECT_EQ(Call({"preview", track, "-o", folder.File("c\\d")}).Status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.File("c\\d/plan.svg")));
    EXPECT_EQ(Split(Call({"fly\nhigh"}).Errors, '\n').size(), 2U);
}
#endif

TEST_F(CommandLine, WritesNothingIfAStepDoesNotFit) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"harbor-comet.nltrack", "scale=2",
         "fly = =1 move move= move=1,2 move=1,2,3,4 move=1,2,x move=1,2,+-3 move=1,2,+ move=1,2,nan "
         "move=1e39,0,0 move=1e999,0,0 move=1,,2,3 "
         "move=1,2,3,supports scale= scale=two scale=1,2 scale=track-only rotate=inf rotate=9O mirror "
         "mirror=up mirror= mirror=north-south,x tunnels tunnels=some remove= remove=moon remove=track, "
         "shuttle shuttle=1 backwards=1 smooth= rename=1 rename=1,abcd rename=0,abcde rename=999,abcde "
         "rename=x,abcde rename=1,abcd\u4E00 [a,b] rename=,abcde rename=1, rename=99999999999,abcde "
         "rename=1,abcd,this-only reverse  "
         "rotate-x=90"},
        {"switchback-spur.nltrack", "shuttle", "shuttle"}, // the first step closes the circuit
        {"loop.nlelem", "reverse",
         "move=1,2,3 rotate=90 rotate-y rotate-w=3 rotate-x=90,track-only rotate-z= reverse=1"}};
    for (const auto& [sample, good, steps] : cases) {
        const std::string own = folder.File(sample);
        WriteBytes(own, ReadBytes(Example(sample)));
        for (const std::string& step : Split(steps, ' ')) {
            const Outcome outcome = Call({"apply", own, good, step, "-o", own});
            const std::string expected = "railwright-cli: " + own + ": step '" + step + "': ";
            EXPECT_TRUE(outcome.Errors.starts_with(expected)) << outcome.Errors;
            EXPECT_TRUE(outcome.Status == 1 && outcome.Errors.find('\n') == outcome.Errors.size() - 1);
            EXPECT_EQ(ReadBytes(own), ReadBytes(Example(sample))) << step;
        }
    }
    EXPECT_EQ(folder.Names().size(), 3U);
    Track.TrackInfo.AuthorComments = "kept"; // all steps are checked before the first one runs
    EXPECT_FALSE(ApplyTrackSteps(Split("remove=comments fly", ' '), {}).Done);
    EXPECT_EQ(Track.TrackInfo.AuthorComments, "kept");
    for (const std::int32_t nodes : {501, 502}) {
        Track.BezierCurve = {{}, nodes, List<BezierNode>(503)};
        EXPECT_EQ(ApplyTrackSteps(Split("smooth", ' '), {}).Done, nodes == 501);
    }
}

TEST_F(CommandLine, ReadsHiddenFilesAndReportsUnknownChunks) {
    const std::string file = folder.File(".odd.nltrack");
    Bytes bytes = ReadBytes(track);
    const auto add = [&](const Bytes& chunk) {
        ++bytes[31]; // the number of sub-chunks
        bytes.insert(bytes.begin() + 32, chunk.begin(), chunk.end());
        WriteBytes(file, bytes);
    };
    add({'w', 0x1B, 'Y', 'Z', 0, 0, 0, 5, 1, 2, 3, 4, 5});
    EXPECT_EQ(Call({"check", file}).Out,
              file + ": ok, 1 unknown chunk 'W?YZ' (5 bytes at byte 32) will not be saved\n");
    add({'A', 'B', 'C', 'D', 0, 0, 0, 0});
    const std::string both = "2 unknown chunks, the first 'ABCD' (0 bytes at byte 32), ";
    EXPECT_EQ(Call({"check", file}).Out, file + ": ok, " + both + "will not be saved\n");
    const Outcome applied = Call({"apply", file, "-o", file});
    EXPECT_EQ(applied.Errors, "railwright-cli: " + file + ": " + both + "were not saved\n");
    EXPECT_TRUE(applied.Status == 0 && ReadBytes(file) == ReadBytes(track));
    EXPECT_EQ(Call({"check", file}).Out, file + ": ok\n");
}

TEST_F(CommandLine, KeepsEverySampleSoundBehindEveryTool) {
    const std::string changed = folder.File("changed.nlelem");
    EXPECT_EQ(Call({"apply", element, "reverse", "rotate-x=30", "-o", changed}).Status, 0);
    ExpectSound(changed);
    EXPECT_EQ(Call({"apply", track, "mirror=east-west", "mirror=east-west", "-o", output}).Status, 0);
    EXPECT_EQ(ReadBytes(output), ReadBytes(track));
    const auto tools =
        Split("move=1e1,-2.5,1e-999,track-only scale=0.5 rotate=-45 tunnels=toggle smooth backwards "
              "remove=prefab-supports,tunnels,custom-colors shuttle smooth backwards",
              ' ');
    const auto change = [](std::int32_t& count, auto& list, char to) { // to a digit, or 60 for an l
        if (to != '9')
            list.resize(static_cast<std::size_t>(count = to - '0') + 1);
    };
    // Numbers of segments, nodes, nodes with supports and trains that may contradict each other.
    for (const char* counts : {"9999", "0999", "1999", "l999", "9099", "9199", "9299", "9919", "9990"})
        for (const char* sample : {"harbor-comet.nltrack", "switchback-spur.nltrack", "timber-fox.nltrack"}) {
            SCOPED_TRACE(std::string(sample) + ' ' + counts);
            ASSERT_TRUE(LoadTrackFile(FilePath::FromUser(Example(sample))));
            change(Track.SegmentList.SegmentCount, Track.SegmentList.Segments, counts[0]);
            change(Track.BezierCurve.NodeCount, Track.BezierCurve.Nodes, counts[1]);
            change(Track.PreFabSupports.NodeCount, Track.PreFabSupports.Nodes, counts[2]);
            change(Track.TrackHeader.NumTrains, Track.TrackHeader.Trains, counts[3]);
            EXPECT_EQ(ApplyTrackSteps(tools, {}).Done, sample[0] == 's');
            ExpectSound(Saved());
        }
}

TEST_F(CommandLine, RenamesObjectsByTheirNumberAndThoseOfTheSameName) {
    // E with acute in both cases, and the division sign, whose byte is 0x20 above that of the multiplication
    // sign.
    for (const char* name : {"\xC9.3ds", "\xE9.3DS", "e.3ds", "\xD7.3ds", "\xF7.3ds"})
        Track.SceneryObjects.Items.emplace_back().FileName = name;
    Track.SceneryObjects.Count = 5;
    const std::string saved = Saved();
    const std::pair<const char*, const char*> cases[] = {{"rename=1,a,b,\u00E9?", "11000"},
                                                         {"rename=2,a,b,\u00E9?,this-only", "01000"},
                                                         {"rename=4,a,b,\u00E9?", "00010"},
                                                         {"rename=5,a,b,\u00E9?", "00001"}};
    for (const auto& [step, renamed] : cases) {
        ASSERT_EQ(Call({"apply", saved, step, "-o", output}).Status, 0);
        std::string flags;
        for (const Json dumped = Dump(output); const Json& object : dumped["SceneryObjects"]["Items"])
            flags += object["FileName"] == "a,b,\u00E9?" ? '1' : '0';
        EXPECT_EQ(flags, renamed) << step;
    }
    EXPECT_EQ(Call({"apply", saved, "rename=5,abcde", "-o", output}).Status, 0); // the shortest allowed name
    EXPECT_EQ(Call({"apply", saved, "rename=6,abcde", "-o", output}).Status, 1);
}

TEST_F(CommandLine, ReportsPrintsDrawsAndDumps) {
    SetStraightCurve({{0.1F, 2.5F, 0}, {0.1F, 2.5F, 3000}}, true);
    Track.TrackInfo.AuthorComments = "one\r\ntwo\r\x1B\x9D\tx";
    Track.SceneryObjects.Count = 1;
    Track.SceneryObjects.Items = List<SceneryObject>(2);
    Track.SceneryObjects.Items[0].FileName = "x\r\nTotal Objects: 9\x7F";
    const std::string report = Call({"report", Saved(), "--group", ".", "--decimal", "\u066B"}).Out;
    EXPECT_NE(report.find("\nTrack Length........: 6.000\u066B0"), std::string::npos) << report;
    EXPECT_TRUE(report.ends_with("13 character(s) long.\none\ntwo\n\uFFFD\uFFFD\tx\n"));
    EXPECT_NE(report.find("\n   Object 001: x\uFFFD\uFFFDTotal Objects: 9\uFFFD\n"), std::string::npos);
    const std::string lines = Call({"polyline", Saved()}).Out;
    EXPECT_TRUE(lines.starts_with("x,y,z,node\n0.1,2.5,0,0\n")) << lines;
    EXPECT_TRUE(lines.ends_with(",1\n0.1,2.5,0,\n")); // the closing copy belongs to no node
    EXPECT_TRUE(Call({"polyline", element}).Out.starts_with("x,y,z\n0,0,0\n"));
    EXPECT_EQ(Call({"preview", element, "-o", folder.File("a/b")}).Status, 0); // creates the folder
    const auto plan = ReadBytes(folder.File("a/b/plan.svg")), side = ReadBytes(folder.File("a/b/side.svg"));
    const std::string drawing(plan.begin(), plan.end());
    EXPECT_NE(drawing.find(
                  " viewBox=\"0 0 224 224\">\n<rect width=\"224\" height=\"224\" fill=\"#000000\"/>\n<line "),
              std::string::npos);
    EXPECT_TRUE(drawing.ends_with("\" r=\"1.5\" fill=\"#ffffff\"/>\n</svg>\n"));
    EXPECT_NE(drawing.find(" x2=\"110\" y2=\"220\" stroke=\"#404040\" stroke-width=\"1\"/>"),
              std::string::npos);
    EXPECT_TRUE(plan != side && !side.empty());
    SetCurve({{{1, 2.5F, -3}, {NAN, 0, 0}, {INFINITY, -INFINITY, 0}, 0.5F, true, false, true}}, false);
    TrackSegment& segment = Track.SegmentList.Segments[0];
    segment.SegmentType = SegmentKind::Lift, segment.LiftValue1 = 8, segment.Color[1] = 0x123456;
    Track.TrackInfo.AuthorComments = "\xE9\x80\"\n\x7F\x9D";
    Track.PreFabSupports = {{}, 2, {{0, 0}, {2, 0}, {}}, {{3, 1}, {4, 2}}};
    Track.Terrain.HasTerrain = true, Track.Terrain.GridSizeX = 2, Track.Terrain.GridSizeZ = 3;
    Track.Terrain.Heights = {0, 1, 10, 11, 20, 21};
    const Json document = Dump(Saved());
    EXPECT_EQ(document.size(), 15U);
    EXPECT_EQ(document["BezierCurve"]["Nodes"], Json::parse(R"([{"Position": [1, 2.5, -3], "Roll": 0.5,
        "ControlIn": ["nan", 0, 0], "ControlOut": ["inf", "-inf", 0],
        "FlagA": true, "FlagB": false, "FlagC": true}])"));
    const Json& lift = document["SegmentList"]["Segments"].at(0); // all fields, whatever the kind
    EXPECT_TRUE(lift["LiftValue1"] == 8 && lift["Color"][1] == 0x123456 && lift["BrakeFlag5"] == false);
    EXPECT_EQ(document["TrackInfo"]["AuthorComments"], "\u00E9\u20AC\"\n\x7F\u009D");
    EXPECT_NE(Call({"dump", Saved()}).Out.find("\u00E9\u20AC\\\"\\n\\u007f\\u009d"), std::string::npos);
    EXPECT_EQ(document["PreFabSupports"]["Nodes"].at(1)["Supports"].at(1)["SupportType"], 4);
    EXPECT_EQ(document["Terrain"]["Heights"], (Json{{0, 10, 20}, {1, 11, 21}}));
    Track.Terrain.GridSizeZ = 0, Track.Terrain.Heights = {};
    EXPECT_EQ(Dump(Saved())["Terrain"]["Heights"], Json::array()); // a grid without points has no columns
    EXPECT_EQ(Dump(element)["Nodes"].size(), Element.Nodes.size());
}

} // namespace railwright::testing
