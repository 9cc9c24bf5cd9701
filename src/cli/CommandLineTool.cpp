#include "cli/CommandLineTool.h"

#include "base/Text.h"
#include "base/Version.h"
#include "cli/Dump.h"
#include "cli/Progress.h"
#include "cli/Steps.h"
#include "cli/Suggestion.h"
#include "documents/DocumentKinds.h"
#include "drawing/SvgPictureBox.h"
#include "format/ChunkReader.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/FileOperations.h"
#include "platform/NameLookup.h"
#include "platform/UserLocale.h"
#include "tools/mNLT_Overview.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <new>
#include <span>

namespace railwright {
namespace {

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int Usage = 2;

/// An error with one file, named as the user typed it. Ends the work on that file.
struct FileFailure {
    std::string File;
    std::string Reason;
};

/// Thrown if standard output cannot be written. Ends the work on all files.
struct OutputFailure {};

/// A kind of document and its commands.
struct Kind : DocumentKind {
    FileResult (*Read)(const FilePath&, UnknownChunks&);
    /// Null if the kind has no report.
    void (*Report)(TextOutput&, const FilePath&, const NumberSeparators&);
    void (*Dump)(TextOutput&);
    void (*PrintPolyline)(TextOutput&);
    StepResult (*Apply)(std::span<const std::string>, const StepBegins&);
};

void PrintPoint(TextOutput& out, const Vector3& point) {
    out << point.X << ',' << point.Y << ',' << point.Z;
}

void PrintTrackPolyline(TextOutput& out) {
    out << "x,y,z,node\n";
    ForEachTrackPoint([&out](const Vector3& point, std::int32_t node) {
        PrintPoint(out, point);
        out << ',';
        if (node != NoNode)
            out << node;
        out << '\n';
    });
}

void PrintElementPolyline(TextOutput& out) {
    out << "x,y,z\n";
    ForEachElementPoint([&out](const Vector3& point) {
        PrintPoint(out, point);
        out << '\n';
    });
}

constexpr std::array Kinds = {
    Kind{TrackKind, ReadTrackFile, PrintTrackOverview, DumpTrack, PrintTrackPolyline, ApplyTrackSteps},
    Kind{ElementKind, ReadElementFile, nullptr, DumpElement, PrintElementPolyline, ApplyElementSteps}};

/// @throws FileFailure if the file's extension belongs to no kind.
const Kind& KindOf(const std::string& file) {
    if (const Kind* const kind = KindOf(Kinds, file))
        return *kind;
    throw FileFailure{file, OfNoKind};
}

struct Loaded {
    const Kind& Of;
    UnknownChunks Unknown;
};

/// @throws FileFailure if the file cannot be read.
Loaded Load(const std::string& file) {
    Loaded loaded = {KindOf(file), {}};
    const FileResult result = loaded.Of.Read(FilePath::FromUser(file), loaded.Unknown);
    if (!result)
        throw FileFailure{file, result.WithByte()};
    return loaded;
}

/// @throws FileFailure if `result` is a failure.
void Require(const FileResult& result, const std::string& file) {
    if (!result)
        throw FileFailure{file, result.Reason};
}

/// Returns an output that passes text on to `out`. It replaces CR LF and CR by LF, as CR would move a
/// terminal's cursor to the start of the line.
TextOutput WithPlainLineEnds(TextOutput& out) {
    return TextOutput([&out, isAfterReturn = false](std::string_view characters) mutable {
        for (const char character : characters) {
            if (character == '\r')
                out << '\n';
            else if (character != '\n' || !isAfterReturn)
                out << character;
            isAfterReturn = character == '\r';
        }
    });
}

/// The parser splits a word such as "[a,b]" into two. This character, which no argument contains, precedes
/// the bracket during parsing.
constexpr char Shield = '\0';

std::vector<std::string> Shielded(std::vector<std::string> words) {
    for (std::string& word : words)
        if (word.starts_with('['))
            word.insert(word.begin(), Shield);
    return words;
}

std::string Unshielded(std::string word) {
    std::erase(word, Shield);
    return word;
}

/// The arguments after the command's name.
struct Arguments {
    std::vector<std::string> Files;
    std::vector<std::string> Steps;
    std::string Target;
    NumberSeparators Separators = UserNumberSeparators();
    /// Stream for progress messages, or null.
    std::ostream* Terminal = nullptr;
    /// Prints a warning about a file on standard error.
    std::function<void(const std::string& file, std::string_view message)> Warn;

    void Unshield() {
        for (std::vector<std::string>* const words : {&Files, &Steps})
            std::transform(words->begin(), words->end(), words->begin(), Unshielded);
        for (std::string* const word : {&Target, &Separators.Group, &Separators.Decimal})
            *word = Unshielded(*word);
    }
};

void PrintReport(const std::string& file, const Arguments& arguments, TextOutput& out) {
    const Kind& kind = Load(file).Of;
    if (kind.Report == nullptr)
        throw FileFailure{file, "an element has no report"};
    TextOutput lines = WithPlainLineEnds(out);
    kind.Report(lines, FilePath::FromUser(file), arguments.Separators);
}

void PrintDump(const std::string& file, const Arguments&, TextOutput& out) {
    Load(file).Of.Dump(out);
}

void PrintPolyline(const std::string& file, const Arguments&, TextOutput& out) {
    Load(file).Of.PrintPolyline(out);
}

/// Draws one of the two views directly into a file.
void WriteDrawing(const FilePath& file, const std::function<void(PictureBox&)>& draw) {
    const auto content = [&draw](OpenFile& opened, std::error_code& error) {
        TextOutput out([&](std::string_view piece) {
            const auto* const bytes = reinterpret_cast<const std::uint8_t*>(piece.data());
            WriteAll(opened, std::span(bytes, piece.size()), error);
        });
        try {
            SvgPictureBox picture(out);
            draw(picture);
            picture.End();
            out.Flush();
        } catch (const std::bad_alloc&) {
            error = std::make_error_code(std::errc::not_enough_memory);
        }
    };
    Require(WriteWholeFile(file, content), file.Native());
}

void WritePreview(const std::string& file, const Arguments& arguments, TextOutput&) {
    const Kind& kind = Load(file).Of;
    const FilePath folder = FilePath::FromUser(arguments.Target);
    Require(CreateFolders(folder), arguments.Target);
    NoPicture none;
    WriteDrawing(folder / FileName("plan.svg"),
                 [&](PictureBox& plan) { kind.DrawWhileSampling(plan, none); });
    WriteDrawing(folder / FileName("side.svg"),
                 [&](PictureBox& side) { kind.DrawWhileSampling(none, side); });
}

/// Applies the steps to a file and saves the result.
/// @return the chunks that the result lacks.
UnknownChunks ApplyAndSave(const std::string& file, const Arguments& arguments) {
    Progress progress(arguments.Terminal);
    progress.Tell("reading");
    const auto [kind, unknown] = Load(file);
    const auto begins = [&, &steps = arguments.Steps](std::size_t i) {
        progress.TellStep("step " + std::to_string(i + 1) + " of " + std::to_string(steps.size()) + ": " +
                          std::string(NameOfStep(steps[i])));
    };
    if (const StepResult applied = kind.Apply(arguments.Steps, begins); !applied.Done)
        throw FileFailure{file, applied.Reason};
    progress.Tell("writing");
    const FileResult saved = kind.Save(FilePath::FromUser(arguments.Target));
    Require(saved, arguments.Target);
    if (!saved.OldKeptIn.IsEmpty())
        arguments.Warn(arguments.Target,
                       "an earlier save was interrupted; the old content is in " + saved.OldKeptIn.Native());
    return unknown;
}

void Apply(const std::string& file, const Arguments& arguments, TextOutput&) {
    if (const UnknownChunks unknown = ApplyAndSave(file, arguments); unknown.Count > 0)
        arguments.Warn(file, unknown.Described() + (unknown.Count == 1 ? " was" : " were") + " not saved");
}

void Check(const std::string& file, const Arguments&, TextOutput& out) {
    const UnknownChunks unknown = Load(file).Unknown;
    out << OnOneLine(file) << ": ok";
    if (unknown.Count > 0)
        out << ", " << unknown.Described() << " will not be saved";
    out << '\n';
}

/// Prints the organizer's messages, one per line.
class PrintedProgress final : public OrganizerProgress {
public:
    explicit PrintedProgress(TextOutput& stream) : out(stream) {}
    void Clear() override {}
    void ShowShare(int) override {}
    void ShowDone() override {}
    void RunPendingEvents() override {}
    void Tell(const std::string& line) override {
        try {
            out << line << '\n';
        } catch (const OutputFailure&) { // the final flush fails again; do not stop organizing halfway
        }
    }

private:
    TextOutput& out;
};

void Organize(const std::string& folder, const Arguments&, TextOutput& out) {
    if (folder.empty())
        throw FileFailure{folder, "no folder is named"};
    const FilePath simulator = FilePath::FromUser(folder);
    const FileStatus status = Files().Status(simulator);
    if (status.What == FileStatus::Kind::Missing)
        throw FileFailure{folder, "no such folder"};
    if (status.What == FileStatus::Kind::Unknown)
        throw FileFailure{folder, "cannot be checked: " + status.Error.message()};
    if (status.What != FileStatus::Kind::Folder)
        throw FileFailure{folder, "is not a folder"};
    const FilePath environments = NameLookup().Find(simulator, FileName("Environments"));
    if (Files().Status(environments).What != FileStatus::Kind::Folder)
        throw FileFailure{folder, "there is no folder Environments in it"};
    PrintedProgress progress(out);
    if (!OrganizeEnvironments(simulator, progress))
        throw FileFailure{folder, "something could not be read or written"};
}

struct Command {
    const char* Name;
    const char* Help;
    /// Arguments of the example in the help.
    const char* Example;
    /// Name of the argument, and whether it can be repeated.
    const char* On = "FILE";
    bool OnMany = false;
    /// Help text of option -o, and FILE or FOLDER. Empty if the command lacks the option.
    const char* Target = "";
    const char* TargetKind = "";
    bool HasSteps = false;
    bool HasSeparators = false;
    /// Prints failures as results on standard output.
    bool TellsFailures = false;
    /// Throws FileFailure.
    void (*Work)(const std::string& file, const Arguments& arguments, TextOutput& out);
};

constexpr Command Commands[] = {
    {.Name = "report",
     .Help = "print the overview of each track",
     .Example = "harbor-comet.nltrack",
     .OnMany = true,
     .HasSeparators = true,
     .Work = PrintReport},
    {.Name = "dump",
     .Help = "print the whole document as JSON",
     .Example = "loop.nlelem > loop.json",
     .Work = PrintDump},
    {.Name = "polyline",
     .Help = "print the sampled curve as CSV",
     .Example = "timber-fox.nltrack > curve.csv",
     .Work = PrintPolyline},
    {.Name = "preview",
     .Help = "draw plan.svg and side.svg",
     .Example = "harbor-comet.nltrack -o drawings",
     .Target = "folder for the drawings",
     .TargetKind = "FOLDER",
     .Work = WritePreview},
    {.Name = "apply",
     .Help = "run tools on a file and save the result",
     .Example = "switchback-spur.nltrack shuttle mirror=east-west -o there-and-back.nltrack",
     .Target = "file to save to, which may be the same",
     .TargetKind = "FILE",
     .HasSteps = true,
     .Work = Apply},
    {.Name = "check",
     .Help = "tell for each file whether it can be read",
     .Example = "harbor-comet.nltrack loop.nlelem",
     .OnMany = true,
     .TellsFailures = true,
     .Work = Check},
    {.Name = "organize",
     .Help = "tidy the environments in the simulator's folder",
     .Example = "NoLimits",
     .On = "FOLDER",
     .Work = Organize},
};

/// Rejects an empty argument.
std::string Required(const std::string& value) {
    return value.empty() ? "it is empty" : "";
}

void AddCommand(CLI::App& app, const Command& command, Arguments& arguments, const Command*& chosen) {
    CLI::App* const added = app.add_subcommand(command.Name, command.Help);
    added->callback([&command, &chosen] { chosen = &command; });
    CLI::Option* const on = command.OnMany
                                ? added->add_option(command.On, arguments.Files)
                                : added->add_option_function<std::string>(
                                      command.On, [&](const std::string& file) { arguments.Files = {file}; });
    on->required()->type_name("");
    if (command.HasSteps) {
        added->add_option("STEP", arguments.Steps, "tool to run, as NAME or NAME=VALUE")->type_name("");
    }
    const std::string example =
        std::string("Example: railwright-cli ") + command.Name + ' ' + command.Example;
    added->footer(example + (command.HasSteps ? "\n" + StepsHelp() : ""));
    if (*command.Target != 0)
        added->add_option("-o", arguments.Target, command.Target)
            ->required()
            ->type_name(command.TargetKind)
            ->check(Required);
    if (command.HasSeparators) {
        added->add_option("--group", arguments.Separators.Group, "what stands between the thousands");
        added->add_option("--decimal", arguments.Separators.Decimal, "what stands before the decimals")
            ->check(Required);
    }
}

/// The parser and its results.
struct CommandLine {
    CLI::App App{"Reports on, draws, checks and changes NoLimits tracks and elements.", "railwright-cli"};
    Arguments Given;
    const Command* Chosen = nullptr;

    CommandLine() {
        App.require_subcommand(1);
        App.allow_windows_style_options(false); // a path may begin with a slash on any system
        App.set_version_flag("--version", "railwright-cli " + std::string(Version),
                             "print the version and exit");
        for (const Command& command : Commands)
            AddCommand(App, command, Given, Chosen);
        App.failure_message([](const CLI::App* app, const CLI::Error& error) {
            const std::vector<std::string> unknown = app->remaining();
            const bool hasCommand = unknown.empty() || !app->get_subcommands().empty();
            return OnOneLine(Unshielded(error.what())) +
                   (hasCommand ? "" : DidYouMean(unknown.front(), Commands)) +
                   "\nRun with --help for more information.\n";
        });
    }
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;
};

} // namespace

void DescribeCommandLine(const std::function<void(const CLI::App&)>& describe) {
    describe(CommandLine().App);
}

int RunCommandLineTool(std::vector<std::string> words, std::ostream& out, std::ostream& errors,
                       std::ostream* terminal) {
    CommandLine line;
    const auto warn = [&errors](const std::string& file, std::string_view message) {
        errors << "railwright-cli: " << OnOneLine(file + ": " + std::string(message)) << '\n';
    };
    line.Given.Terminal = terminal;
    line.Given.Warn = warn;
    const Arguments& arguments = line.Given;
    try {
        std::reverse(words.begin(), words.end()); // the parser expects them in reverse
        line.App.parse(Shielded(std::move(words)));
        line.Given.Unshield();
    } catch (const CLI::ParseError& error) {
        if (line.App.exit(error, out, errors) != 0)
            return Usage;
        line.Given.Files.clear(); // help and version need no file
    }

    bool readerIsGone = false;
    const auto require = [&readerIsGone](const std::ostream& written) {
        if (written)
            return;
        readerIsGone = readerIsGone || errno == EPIPE;
        throw OutputFailure{};
    };
    TextOutput output([&](std::string_view piece) {
        errno = 0;
        require(out.write(piece.data(), static_cast<std::streamsize>(piece.size())));
    });
    bool all = true;
    const auto fail = [&](const std::string& file, const std::string& reason) {
        all = false;
        if (line.Chosen->TellsFailures)
            output << OnOneLine(file + ": " + reason) << '\n';
        else
            warn(file, reason);
    };
    try {
        for (const std::string& file : arguments.Files) {
            try {
                line.Chosen->Work(file, arguments, output);
            } catch (const FileFailure& failure) {
                fail(failure.File, failure.Reason);
            } catch (const std::bad_alloc&) {
                fail(file, "there is not enough memory");
            }
        }
        output.Flush();
        errno = 0;
        require(out.flush());
    } catch (const OutputFailure&) {
        if (!readerIsGone) { // a reader that stops early, such as head, is no failure
            warn("standard output", "cannot be written");
            return Failed;
        }
    }
    return all ? Done : Failed;
}

} // namespace railwright
