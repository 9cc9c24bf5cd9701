#include "cli/CommandLineTool.h"

#include "base/FileName.h"
#include "cli/Dump.h"
#include "cli/Steps.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "platform/Paths.h"
#include "platform/UserLocale.h"
#include "platform/svg/SvgPictureBox.h"
#include "tools/mNLT_Overview.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>
#include <span>

namespace railwright {
namespace {

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int Usage = 2;

/// What went wrong with which file; it ends the work on that file.
struct FileFailure {
    std::string File;
    std::string Reason;
};

/// What the program does with a document of one kind.
struct Kind {
    std::string_view Extension;
    FileResult (*Load)(const std::string&);
    FileResult (*Save)(const std::string&);
    void (*Analyze)();
    void (*Draw)(PictureBox&, PictureBox&);
    std::string (*Dump)();
    StepResult (*Apply)(std::span<const std::string>);
};

constexpr std::array Kinds = {Kind{TrackExtension, LoadTrackFile, SaveTrackFile, AnalyzeTrack,
                                   DrawTrackPreview, DumpTrack, ApplyTrackSteps},
                              Kind{ElementExtension, LoadElementFile, SaveElementFile, AnalyzeElement,
                                   DrawElementPreview, DumpElement, ApplyElementSteps}};

const Kind& TrackKind = Kinds[0];

std::string WithByte(const FileResult& result) {
    return result.Reason + " at byte " + std::to_string(result.Byte);
}

/// @throws FileFailure if the file's name has neither extension.
const Kind& KindOf(const std::string& file) {
    for (const Kind& kind : Kinds)
        if (HasExtension(file, kind.Extension))
            return kind;
    throw FileFailure{file, "the name ends in neither .nltrack nor .nlelem"};
}

/// @throws FileFailure if the file cannot be read.
void Load(const Kind& kind, const std::string& file) {
    if (const FileResult loaded = kind.Load(PathFromOutside(file)); !loaded)
        throw FileFailure{file, loaded.Byte > 0 ? WithByte(loaded) : loaded.Reason};
}

const Kind& LoadAny(const std::string& file) {
    const Kind& kind = KindOf(file);
    Load(kind, file);
    return kind;
}

/// @throws FileFailure unless it is done.
void Require(const FileResult& result, const std::string& file) {
    if (!result)
        throw FileFailure{file, result.Reason};
}

std::string WithPlainLineEnds(std::string lines) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i] != '\r' || i + 1 == lines.size() || lines[i + 1] != '\n')
            lines[kept++] = lines[i];
    lines.resize(kept);
    return lines;
}

void PrintReport(const std::string& file, const NumberSeparators& separators, std::ostream& out) {
    Load(TrackKind, file);
    AnalyzeTrack();
    out << WithPlainLineEnds(BuildTrackOverview(PathFromOutside(file), separators));
}

void PrintPolyline(const std::string& file, std::ostream& out) {
    const Kind& kind = LoadAny(file);
    kind.Analyze();
    const bool isTrack = &kind == &TrackKind;
    const std::vector<Vector3>& points = isTrack ? TrackPolyline : ElementPolyline;
    out << (isTrack ? "x,y,z,node\n" : "x,y,z\n");
    for (std::size_t i = 0; i < points.size(); ++i) {
        out << ShortestFloat(points[i].X) << ',' << ShortestFloat(points[i].Y) << ','
            << ShortestFloat(points[i].Z);
        if (isTrack)
            out << ',' << (i < TrackPolylineNode.size() ? std::to_string(TrackPolylineNode[i]) : "");
        out << '\n';
    }
}

void WriteText(const std::string& file, const std::string& characters) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(characters.data());
    Require(WriteWholeFile(PathFromOutside(file), std::span(bytes, characters.size())), file);
}

void WritePreview(const std::string& file, const std::string& folder) {
    const Kind& kind = LoadAny(file);
    kind.Analyze();
    SvgPictureBox plan;
    SvgPictureBox side;
    kind.Draw(plan, side);
    Require(CreateFolders(PathFromOutside(folder)), folder);
    WriteText(folder + "/plan.svg", plan.Document());
    WriteText(folder + "/side.svg", side.Document());
}

void Apply(const std::string& file, const std::vector<std::string>& steps, const std::string& target) {
    const Kind& kind = LoadAny(file);
    if (const StepResult applied = kind.Apply(steps); !applied.Done)
        throw FileFailure{file, applied.Reason};
    Require(kind.Save(PathFromOutside(target)), target);
}

/// @throws FileFailure with the byte of the fault.
void Check(const std::string& file) {
    if (const FileResult loaded = KindOf(file).Load(PathFromOutside(file)); !loaded)
        throw FileFailure{file, WithByte(loaded)};
}

/// Runs `work` on each file, goes on after a failure, and tells whether all went well.
template <class Work, class Tell>
bool ForEachFile(const std::vector<std::string>& files, Work&& work, Tell&& tell) {
    bool all = true;
    for (const std::string& file : files) {
        try {
            work(file);
        } catch (const FileFailure& failure) {
            tell(failure);
            all = false;
        }
    }
    return all;
}

} // namespace

int RunCommandLineTool(std::vector<std::string> arguments, std::ostream& out, std::ostream& errors) {
    CLI::App app("Reports on, draws, checks and changes NoLimits tracks and elements.", "railwright-cli");
    app.require_subcommand(1);
    app.allow_windows_style_options(false); // a path may begin with a slash everywhere
    std::vector<std::string> files;
    std::string file;
    std::vector<std::string> steps;
    std::string target;
    NumberSeparators separators = UserNumberSeparators();

    const auto command = [&](const char* name, const char* help) { return app.add_subcommand(name, help); };
    const auto onFiles = [&](CLI::App* added) {
        added->add_option("FILE", files, "files to read")->required();
    };
    const auto onFile = [&](CLI::App* added) { added->add_option("FILE", file, "file to read")->required(); };

    CLI::App* const report = command("report", "print the overview of each track");
    onFiles(report);
    report->add_option("--group", separators.Group, "what stands between the thousands");
    report->add_option("--decimal", separators.Decimal, "what stands before the decimals");
    CLI::App* const dump = command("dump", "print the whole document as JSON");
    onFile(dump);
    CLI::App* const polyline = command("polyline", "print the sampled curve as CSV");
    onFile(polyline);
    CLI::App* const preview = command("preview", "draw plan.svg and side.svg");
    onFile(preview);
    preview->add_option("-o", target, "folder for the drawings")->required();
    CLI::App* const apply = command("apply", "run tools on a file and save the result");
    onFile(apply);
    apply->add_option("STEP", steps, "tool to run, as NAME or NAME=VALUE");
    apply->add_option("-o", target, "file to save to, which may be FILE")->required();
    CLI::App* const check = command("check", "tell for each file whether it can be read");
    onFiles(check);

    try {
        std::reverse(arguments.begin(), arguments.end()); // as the parser wants them
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, errors) == 0 ? Done : Usage;
    }
    if (files.empty()) // a command on one file
        files.push_back(file);

    const auto tell = [&](const FileFailure& failure) {
        errors << "railwright-cli: " << failure.File << ": " << failure.Reason << '\n';
    };
    const auto work = [&](const std::string& name) {
        if (report->parsed())
            PrintReport(name, separators, out);
        else if (dump->parsed())
            out << LoadAny(name).Dump() << '\n';
        else if (polyline->parsed())
            PrintPolyline(name, out);
        else if (preview->parsed())
            WritePreview(name, target);
        else
            Apply(name, steps, target);
    };
    bool all = false;
    if (check->parsed())
        all = ForEachFile(
            files,
            [&](const std::string& name) {
                Check(name);
                out << name << ": ok\n";
            },
            [&](const FileFailure& failure) { out << failure.File << ": " << failure.Reason << '\n'; });
    else
        all = ForEachFile(files, work, tell);
    if (!out.flush()) {
        errors << "railwright-cli: standard output: cannot be written\n";
        return Failed;
    }
    return all ? Done : Failed;
}

} // namespace railwright
