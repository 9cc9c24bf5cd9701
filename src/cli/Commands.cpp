#include "cli/Commands.h"

#include "base/Text.h"
#include "cli/Dump.h"
#include "cli/Progress.h"
#include "cli/Steps.h"
#include "documents/DocumentKinds.h"
#include "drawing/SvgPictureBox.h"
#include "format/ChunkReader.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/FileOperations.h"
#include "platform/NameLookup.h"
#include "tools/mNLT_Overview.h"

#include <array>
#include <new>

namespace railwright {
namespace {

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

constexpr Command Table[] = {
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

} // namespace

std::span<const Command> Commands() {
    return Table;
}

} // namespace railwright
