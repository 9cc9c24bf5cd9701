#include "cli/CommandLineTool.h"

#include "base/FileName.h"
#include "cli/Dump.h"
#include "cli/Steps.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/FileOperations.h"
#include "platform/Paths.h"
#include "platform/UserLocale.h"
#include "platform/svg/SvgPictureBox.h"
#include "tools/mNLT_Overview.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <new>
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

/// What a command line says behind the command's name.
struct Arguments {
    std::vector<std::string> Files;
    std::vector<std::string> Steps;
    std::string Target;
    NumberSeparators Separators = UserNumberSeparators();
};

void PrintReport(const std::string& file, const Arguments& arguments, std::ostream& out) {
    Load(TrackKind, file);
    AnalyzeTrack();
    out << WithPlainLineEnds(BuildTrackOverview(PathFromOutside(file), arguments.Separators));
}

void PrintDump(const std::string& file, const Arguments&, std::ostream& out) {
    out << LoadAny(file).Dump() << '\n';
}

void PrintPolyline(const std::string& file, const Arguments&, std::ostream& out) {
    const Kind& kind = LoadAny(file);
    kind.Analyze();
    const bool isTrack = &kind == &TrackKind;
    const List<Vector3>& points = isTrack ? TrackPolyline : ElementPolyline;
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

void WritePreview(const std::string& file, const Arguments& arguments, std::ostream&) {
    const Kind& kind = LoadAny(file);
    kind.Analyze();
    SvgPictureBox plan;
    SvgPictureBox side;
    kind.Draw(plan, side);
    Require(CreateFolders(PathFromOutside(arguments.Target)), arguments.Target);
    WriteText(arguments.Target + "/plan.svg", plan.Document());
    WriteText(arguments.Target + "/side.svg", side.Document());
}

void Apply(const std::string& file, const Arguments& arguments, std::ostream&) {
    const Kind& kind = LoadAny(file);
    if (const StepResult applied = kind.Apply(arguments.Steps); !applied.Done)
        throw FileFailure{file, applied.Reason};
    Require(kind.Save(PathFromOutside(arguments.Target)), arguments.Target);
}

void Check(const std::string& file, const Arguments&, std::ostream& out) {
    if (const FileResult loaded = KindOf(file).Load(PathFromOutside(file)); !loaded)
        throw FileFailure{file, WithByte(loaded)};
    out << file << ": ok\n";
}

/// Prints what the organizer does, line by line.
class PrintedProgress final : public OrganizerProgress {
public:
    explicit PrintedProgress(std::ostream& stream) : out(stream) {}
    void Clear() override {}
    void ShowShare(int) override {}
    void ShowDone() override {}
    void RunPendingEvents() override {}
    void Tell(const std::string& line) override { out << line << '\n'; }

private:
    std::ostream& out;
};

void Organize(const std::string& folder, const Arguments&, std::ostream& out) {
    const std::string inside = PathFromOutside(folder);
    if (Files().Status(inside + "\\Environments").What != FileStatus::Kind::Folder)
        throw FileFailure{folder, "there is no folder Environments in it"};
    PrintedProgress progress(out);
    if (!OrganizeEnvironments(inside, progress))
        throw FileFailure{folder, "something could not be read or written"};
}

struct Command {
    const char* Name;
    const char* Help;
    /// What it works on, and whether it takes more than one.
    const char* On;
    bool OnMany;
    /// What its option -o names; none if empty.
    const char* Target;
    bool HasSteps;
    bool HasSeparators;
    /// It tells what is wrong with a file as its result, on standard output.
    bool TellsFailures;
    /// Throws FileFailure.
    void (*Work)(const std::string& file, const Arguments& arguments, std::ostream& out);
};

constexpr Command Commands[] = {
    {"report", "print the overview of each track", "FILE", true, "", false, true, false, PrintReport},
    {"dump", "print the whole document as JSON", "FILE", false, "", false, false, false, PrintDump},
    {"polyline", "print the sampled curve as CSV", "FILE", false, "", false, false, false, PrintPolyline},
    {"preview", "draw plan.svg and side.svg", "FILE", false, "folder for the drawings", false, false, false,
     WritePreview},
    {"apply", "run tools on a file and save the result", "FILE", false, "file to save to, which may be FILE",
     true, false, false, Apply},
    {"check", "tell for each file whether it can be read", "FILE", true, "", false, false, true, Check},
    {"organize", "tidy the environments in the simulator's folder", "FOLDER", false, "", false, false, false,
     Organize},
};

void AddCommand(CLI::App& app, const Command& command, Arguments& arguments, const Command*& chosen) {
    CLI::App* const added = app.add_subcommand(command.Name, command.Help);
    added->callback([&command, &chosen] { chosen = &command; });
    if (command.OnMany)
        added->add_option(command.On, arguments.Files)->required();
    else
        added
            ->add_option_function<std::string>(
                command.On, [&arguments](const std::string& file) { arguments.Files = {file}; })
            ->required();
    if (command.HasSteps)
        added->add_option("STEP", arguments.Steps, "tool to run, as NAME or NAME=VALUE");
    if (*command.Target != 0)
        added->add_option("-o", arguments.Target, command.Target)->required();
    if (command.HasSeparators) {
        added->add_option("--group", arguments.Separators.Group, "what stands between the thousands");
        added->add_option("--decimal", arguments.Separators.Decimal, "what stands before the decimals");
    }
}

} // namespace

int RunCommandLineTool(std::vector<std::string> words, std::ostream& out, std::ostream& errors) {
    CLI::App app("Reports on, draws, checks and changes NoLimits tracks and elements.", "railwright-cli");
    app.require_subcommand(1);
    app.allow_windows_style_options(false); // a path may begin with a slash everywhere
    Arguments arguments;
    const Command* chosen = nullptr;
    for (const Command& command : Commands)
        AddCommand(app, command, arguments, chosen);
    try {
        std::reverse(words.begin(), words.end()); // as the parser wants them
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, errors) == 0 ? Done : Usage;
    }

    bool all = true;
    const auto fail = [&](const std::string& file, std::string_view reason) {
        (chosen->TellsFailures ? out : errors << "railwright-cli: ") << file << ": " << reason << '\n';
        all = false;
    };
    for (const std::string& file : arguments.Files) {
        try {
            chosen->Work(file, arguments, out);
        } catch (const FileFailure& failure) {
            fail(failure.File, failure.Reason);
        } catch (const std::bad_alloc&) {
            fail(file, "there is not enough memory");
        }
    }
    if (!out.flush()) {
        errors << "railwright-cli: standard output: cannot be written\n";
        return Failed;
    }
    return all ? Done : Failed;
}

} // namespace railwright
