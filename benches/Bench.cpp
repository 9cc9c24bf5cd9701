#include "benches/Documents.h"
#include "benches/OneFile.h"
#include "benches/Yardsticks.h"
#include "cli/Dump.h"
#include "cli/Steps.h"
#include "drawing/SvgPictureBox.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "install/mTool_EnvironmentCleaner.h"
#include "platform/UserLocale.h"
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#include "shell/mMain.h"
#include "tools/mNLT_Overview.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>

#include <QApplication>
#include <QProcess>
#include <malloc.h>
#include <sys/resource.h>

namespace railwright::bench {
namespace {

/// A measurement.
struct Row {
    /// Kind of its documents, a slash, and the measured operation.
    std::string Name;
    /// Rows of the same kind to compare with, separated by blanks.
    std::string Yardsticks;
    std::function<void()> Once;
    /// Runs before each measurement.
    std::function<void()> Before = {};
    std::vector<std::int64_t> Sizes = {};
    bool ChangesDocument = false;
    /// Returns a figure that is printed unchanged, instead of the time of Once.
    std::function<double()> Figure = {};

    std::string Kind() const { return Name.substr(0, Name.find('/')); }
};

std::string inHand; // kind and size of the open document
bool isChanged = false;
FilePath path;                   // of the document's file
std::vector<std::uint8_t> bytes; // content of that file
std::vector<std::uint8_t> copied;
QtTrack qtTrack;
TrackMeasures measures; // of the open track

void Must(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << inHand << ": " << what << '\n';
    std::exit(EXIT_FAILURE);
}

void Load() {
    Must(bool(path.Native().ends_with("k") ? LoadTrackFile(path) : LoadElementFile(path)), "does not load");
}
void Save() {
    Must(bool(path.Native().ends_with("k") ? SaveTrackFile(path) : SaveElementFile(path)), "cannot be saved");
}
template <void (*Work)()>
void InMemory() {
    const OneFile memory(bytes);
    Work();
}
void CopyFresh() {
    std::vector<std::uint8_t> fresh(bytes.size());
    ByteSwapCopy(bytes, fresh);
    benchmark::DoNotOptimize(fresh.data());
}
void ReadWithQt() {
    Must(QDataStreamReader(bytes).Read(qtTrack = {}), "QDataStreamReader failed");
}
void ReadWithQtFromDisk() {
    QFile file(QString::fromStdString(path.Native()));
    Must(file.open(QIODevice::ReadOnly) && QDataStreamReader(file).Read(qtTrack = {}),
         "QDataStreamReader failed");
}
/// Returns free memory to the system, as in a process that was just started.
void FreeMemory() {
    malloc_trim(0);
}
void FreeDocuments() {
    ClearTrackDocument();
    ClearElementDocument();
    TrackPolyline = List<Vector3>(1);
    TrackPolylineNode = List<std::int32_t>(1);
    qtTrack = {};
    FreeMemory();
}
std::string Report() {
    return BuildTrackOverview(path, UserNumberSeparators(), measures);
}

std::int64_t howMany = 0; // number of environments, or textures of one environment
const std::filesystem::path environments = "simulator/Environments";

/// Creates the simulator's folder, with environments of one texture each or one environment with all
/// textures.
void MakeEnvironments(bool isOne) {
    std::filesystem::remove_all(environments);
    std::filesystem::create_directories(environments);
    for (std::int64_t i = 0; i < howMany; ++i) {
        const std::string name = std::to_string(i);
        std::ofstream(environments / (name + ".png")) << name;
        std::ofstream(environments / ((isOne ? "one" : name) + ".env"), std::ios::app)
            << "t.texture.path=Environments\\" << name << ".png\r\n";
    }
}
/// Does the same without any care: copies the files one after the other.
void CopyPlainly() {
    for (std::int64_t i = 0; i < howMany; ++i) {
        const std::string name = std::to_string(i), texture = name + ".png";
        std::filesystem::create_directory(environments / name);
        std::filesystem::copy_file(environments / texture, environments / name / texture);
        std::ofstream(environments / (name + ".env"))
            << "t.texture.path=Environments\\" << name << '\\' << texture << "\r\n\r\n";
        std::filesystem::remove(environments / texture);
    }
}
void Organize() {
    OrganizerProgress progress;
    Must(OrganizeEnvironments(FilePath::FromUser("simulator"), progress), "cannot be organized");
}

template <class Draw>
void DrawSvg(Draw&& draw) {
    TextOutput out([](std::string_view piece) { benchmark::DoNotOptimize(piece.size()); });
    SvgPictureBox plan(out), side(out);
    draw(plan, side);
    out.Flush();
}

/// Checks that the yardsticks and the program have the same results, and that a saved file equals the loaded
/// one.
void Check() {
    ReadWithQt();
    const auto same = [](const auto& read, std::int64_t count) { return read.size() == count; };
    const BezierNode& last = *(Track.BezierCurve.Nodes.end() - 2); // one more than counted was read
    const QString model = QString::fromStdString(BytesOf((Track.SceneryObjects.Items.end() - 2)->FileName));
    Must(same(qtTrack.List<BezierNode>(), Track.BezierCurve.NodeCount) &&
             same(qtTrack.List<TrackSegment>(), Track.SegmentList.SegmentCount) &&
             same(qtTrack.List<QList<PreFabSupport>>(), Track.PreFabSupports.NodeCount) &&
             same(qtTrack.List<SupportBeam>(), Track.SupportBeams.Count) &&
             same(qtTrack.List<Tree>(), Track.Scenery.TreeCount) &&
             same(qtTrack.List<float>(), static_cast<std::int64_t>(Track.Terrain.Heights.size())) &&
             qtTrack.List<BezierNode>().last().Position.X == last.Position.X &&
             qtTrack.List<BezierNode>().last().Roll == last.Roll &&
             qtTrack.List<QtTrack::Object>().last().FileName == model,
         "QDataStreamReader reads something else");
    const double length = TextbookSamples();
    // A sum in 32 bits stops growing when the steps are smaller than its last digit.
    Must(length > 1e6 || std::abs(static_cast<double>(TrackLength()) / length - 1) < 0.01,
         "the lengths differ");
    const std::vector<std::uint8_t> before = bytes;
    Save();
    Must(ReadWholeFile(path, bytes) && bytes == before, "does not come back");
}

/// Saves the open document and keeps its file.
void MakeFile(const char* name) {
    path = FilePath::FromUser(name);
    Save();
    Must(bool(ReadWholeFile(path, bytes)), "cannot be read");
    copied = bytes;
}

/// Creates and analyses a document of a kind and a size, unless it is already open and unchanged.
void Prepare(const std::string& kind, std::int64_t size) {
    const bool isTrack = kind != "Element";
    if (inHand != kind + std::to_string(size)) {
        inHand = kind + std::to_string(size);
        isTrack ? kind == "Track" ? Dice().MakeTrack(size) : Dice().MakeTerrain(size)
                : Dice().MakeElement(size);
        MakeFile(isTrack ? "bench.nltrack" : "bench.nlelem");
        Load();
        if (isTrack)
            Check();
        isChanged = true;
    }
    if (!std::exchange(isChanged, false))
        return;
    InMemory<Load>();
    if (isTrack)
        AnalyzeTrack(), measures = MeasureTrack();
    else
        AnalyzeElement();
}

/// @return a value of /proc/self/status in bytes.
double ProcessStatus(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (double kilobytes = 0; word == name && status >> kilobytes)
            return 1024 * kilobytes;
    return 0;
}

/// @return megabytes that the command line prints per second of processor time.
template <void (*Print)(TextOutput&)>
double MegabytesPerSecond() {
    std::size_t printed = 0;
    TextOutput out([&](std::string_view piece) {
        benchmark::DoNotOptimize(piece.data());
        printed += piece.size();
    });
    const std::clock_t start = std::clock();
    Print(out);
    out.Flush();
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    return static_cast<double>(printed) / 1e6 / seconds;
}
template <void (*Draw)(PictureBox&, PictureBox&)>
void PrintDrawings(TextOutput& out) {
    SvgPictureBox plan(out), side(out);
    Draw(plan, side);
}

/// @return the shortest of several runs in seconds. Each run starts without free memory.
double LeastSeconds(const std::function<void()>& before, const std::function<void()>& once) {
    double least = INFINITY;
    for (int run = 0; run < 5; ++run) {
        before();
        FreeMemory();
        const auto start = std::chrono::steady_clock::now();
        once();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        least = std::min(least, taken.count());
    }
    return least;
}

/// A track with a million items of a kind that slows down some part of the window.
struct LargeTrack {
    const char* Name;
    void (Dice::*Make)(std::int64_t count);
};
constexpr LargeTrack LargeTracks[] = {{"NearNodes", &Dice::MakeNearNodes},
                                      {"FarNodes", &Dice::MakeFarNodes},
                                      {"Objects", &Dice::MakeObjects},
                                      {"CommentLines", &Dice::MakeComments}};

void MakeLargeTrack(const LargeTrack& track) {
    if (std::exchange(inHand, track.Name) == track.Name)
        return;
    (Dice().*track.Make)(1'000'000);
    MakeFile("large.nltrack");
}
void OpenInWindow(const FilePath& file) {
    Must(OpenNoLimitsFile(file), "is not opened");
    QApplication::processEvents();
}
/// Opens a small file in the window and frees the large one.
void EmptyWindow() {
    OpenInWindow(FilePath::FromUser(EXAMPLE));
    FreeDocuments();
}

/// @return the time that the window takes to open a large track, relative to load and analysis.
double OpenInLoads(const LargeTrack& track) {
    MakeLargeTrack(track);
    const double load = LeastSeconds(FreeDocuments, [] { Load(), AnalyzeTrack(); });
    return LeastSeconds(EmptyWindow, [] { OpenInWindow(path); }) / load;
}

/// @return the highest growth of the process while `work` runs, relative to the file.
double PeakInFiles(void (*work)()) {
    std::ofstream("/proc/self/clear_refs") << 5; // resets the peak
    const double before = ProcessStatus("VmRSS:");
    work();
    return (ProcessStatus("VmHWM:") - before) / static_cast<double>(bytes.size());
}
double PeakOfLoad() {
    FreeDocuments();
    return PeakInFiles(InMemory<Load>);
}
double PeakOfOpen(const LargeTrack& track) {
    MakeLargeTrack(track);
    EmptyWindow();
    return PeakInFiles([] { OpenInWindow(path); });
}

/// @return the median of 20 ratios.
double Median(const std::function<double()>& ratio) {
    std::vector<double> ratios(20);
    std::generate(ratios.begin(), ratios.end(), ratio);
    std::sort(ratios.begin(), ratios.end());
    return (ratios[9] + ratios[10]) / 2;
}

/// @return the time that the program takes to show a file, relative to a smaller program.
double StartInTimesOf(const char* other) {
    const auto seconds = [](const char* program) {
        const auto start = std::chrono::steady_clock::now();
        Must(QProcess::execute(program, {EXAMPLE}) == 0, program);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    return Median([&] {
        const double less = seconds(other);
        return seconds(RAILWRIGHT_START) / less;
    });
}

/// @return processor time of the command line's `check`, in seconds.
double SecondsOfCheck(const QString& file) {
    const auto ofChildren = [] {
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    };
    const double before = ofChildren();
    QProcess check;
    check.setStandardOutputFile(QProcess::nullDevice());
    check.start(COMMAND_LINE, {"check", file});
    Must(check.waitForFinished() && check.exitCode() == 0, "cannot be checked");
    return ofChildren() - before;
}
/// @return the time to check a track of 24 MB, without the start of the process, relative to
/// ByteSwapCopyTouched of the file.
double CheckInByteSwapCopies() {
    inHand = "24 MB";
    Dice().MakeTrack(83'000);
    MakeFile("large.nltrack");
    return Median([] {
        const double start = SecondsOfCheck(EXAMPLE);
        const double check = SecondsOfCheck("large.nltrack") - start;
        return check / LeastSeconds([] {}, [] { ByteSwapCopy(bytes, copied); });
    });
}

/// Returns whether a row works on many files instead of one document.
bool HasFiles(const Row& row) {
    return row.Kind() == "Environments" || row.Kind() == "Textures";
}
/// Returns whether a row creates its own documents.
bool StandsAlone(const Row& row) {
    return row.Kind() == "Window" || row.Kind() == "Program";
}

std::vector<Row> Rows() {
    std::vector<Row> rows;
    const std::string copies = "ByteSwapCopyTouched ByteSwapCopyFresh", textbook = "TextbookSamples";
    using Step = std::function<void()>;
    const auto add = [&](const std::string& name, const std::string& yardsticks, Step once,
                         Step before = {}) {
        rows.push_back({name, yardsticks, std::move(once), std::move(before)});
    };
    const auto addFiles = [&](const std::string& kind) {
        const std::string reader = kind == "Element/" ? "" : " QDataStreamReader";
        add(kind + "ByteSwapCopyTouched", "", [] { ByteSwapCopy(bytes, copied); });
        add(kind + "ByteSwapCopyFresh", "", CopyFresh, FreeMemory);
        if (!reader.empty())
            add(kind + "QDataStreamReader", "", ReadWithQt, FreeDocuments);
        if (!reader.empty())
            add(kind + "QDataStreamReaderDisk", "", ReadWithQtFromDisk, FreeDocuments);
        add(kind + "Load", copies + reader, InMemory<Load>, FreeDocuments);
        add(kind + "LoadDisk", reader.empty() ? "" : "QDataStreamReaderDisk", Load, FreeDocuments);
        add(kind + "Save", copies + reader, InMemory<Save>, FreeMemory);
        add(kind + "SaveDisk", "", Save, FreeMemory);
    };
    const auto addTools = [&](const std::string& kind, auto apply, std::initializer_list<const char*> steps) {
        for (const std::string step : steps) {
            add(kind + step.substr(0, step.find('=')), "ByteSwapCopyTouched", [=] {
                Must(apply({&step, 1}, {}).Done, step.c_str());
            });
            rows.back().ChangesDocument = true;
        }
    };
    QtPictureBox &plan = frmMain::Instance().Plan(), &side = frmMain::Instance().Side();
    const auto addFigure = [&](const std::string& name, std::function<double()> figure) {
        add(name, "", {});
        rows.back().Figure = std::move(figure);
    };
    addFiles("Track/");
    addFigure("Track/DumpMegabytesPerSecond", MegabytesPerSecond<DumpTrack>);
    addFigure("Track/PreviewMegabytesPerSecond", MegabytesPerSecond<PrintDrawings<DrawTrackWhileSampling>>);
    addFigure("Track/LoadPeakMemoryInFiles", PeakOfLoad);
    add("Track/TextbookSamples", "", [] { benchmark::DoNotOptimize(TextbookSamples()); });
    add("Track/Analysis", textbook, AnalyzeTrack);
    add("Track/Length", textbook, [] { benchmark::DoNotOptimize(TrackLength()); });
    add("Track/Report", textbook, Report);
    add("Track/DrawSvg", textbook, [] { DrawSvg(DrawTrackPreview); });
    add("Track/DrawQt", textbook, [&] { DrawTrackPreview(plan, side); });
    add("Track/PaintQt", textbook, [&] { plan.Drawn(1), side.Drawn(1); });
    // RefreshTrackTools without the panels' widgets; then all of it, with painting.
    add("Track/Refresh", textbook, [&] { measures = DrawAndMeasureTrack(plan, side), Report(); });
    add("Track/RefreshWindow", textbook, [] { RefreshTrackTools(), QApplication::processEvents(); });
    addTools("Track/", ApplyTrackSteps,
             {"move=0.25,0,0", "scale=-1", "rotate=5", "mirror=east-west", "tunnels=toggle", "backwards",
              "remove=tunnels,custom-colors", "rename=1,harbour_crane_0.3ds", "smooth", "shuttle"});
    rows.back().Before = InMemory<Load>; // not possible twice
    add("Track/OpenToSaveDisk", "QDataStreamReaderDisk", [] {
        Load();
        DrawSvg([](auto& ofPlan, auto& ofSide) { measures = DrawAndMeasureTrack(ofPlan, ofSide); });
        Report();
        Must(ApplyTrackSteps(std::vector<std::string>{"mirror=east-west"}, {}).Done, "mirror");
        Save();
    });
    rows.back().ChangesDocument = true;
    addFiles("Element/");
    addFigure("Element/DumpMegabytesPerSecond", MegabytesPerSecond<DumpElement>);
    addFigure("Element/PreviewMegabytesPerSecond",
              MegabytesPerSecond<PrintDrawings<DrawElementWhileSampling>>);
    add("Element/Analysis", "", AnalyzeElement);
    add("Element/DrawSvg", "", [] { DrawSvg(DrawElementPreview); });
    add("Element/Refresh", "", [&] { AnalyzeElement(), DrawElementPreview(plan, side); });
    addTools("Element/", ApplyElementSteps, {"reverse", "rotate-y=5"});
    addFiles("Terrain/");
    add("Terrain/Report", copies, Report);
    add("Environments/PlainCopiesDisk", "", CopyPlainly, [] { MakeEnvironments(false); });
    add("Environments/OrganizeDisk", "PlainCopiesDisk", Organize, [] { MakeEnvironments(false); });
    add("Textures/OrganizeDisk", "", Organize, [] { MakeEnvironments(true); });
    for (const LargeTrack& track : LargeTracks) {
        addFigure(std::string("Window/") + track.Name + "OpenInLoads",
                  [&track] { return OpenInLoads(track); });
        addFigure(std::string("Window/") + track.Name + "PeakMemoryInFiles",
                  [&track] { return PeakOfOpen(track); });
    }
    addFigure("Program/StartInEmptyWindows", [] { return StartInTimesOf(EMPTY_START); });
    addFigure("Program/StartInLinesOfText", [] { return StartInTimesOf(PLAIN_START); });
    addFigure("Program/CheckInByteSwapCopies", CheckInByteSwapCopies);
    for (Row& row : rows)
        row.Sizes = row.Kind() == "Terrain"      ? std::vector<std::int64_t>{256, 512, 1024, 2048}
                    : StandsAlone(row)           ? std::vector<std::int64_t>{1}
                    : HasFiles(row)              ? std::vector<std::int64_t>{100, 1000, 10'000}
                    : row.Name == "Track/smooth" ? std::vector<std::int64_t>{100, 500}
                    : row.Name.ends_with("Samples")
                        ? std::vector<std::int64_t>{100, 1000, 10'000}
                        : std::vector<std::int64_t>{100, 1000, 10'000, 100'000, 1'000'000};
    return rows;
}

void Run(benchmark::State& state, const Row& row) {
    howMany = state.range(0);
    if (!StandsAlone(row) && !HasFiles(row))
        Prepare(row.Kind(), state.range(0));
    double figure = 0;
    for ([[maybe_unused]] auto _ : state) {
        if (row.Before) {
            state.PauseTiming();
            row.Before();
            state.ResumeTiming();
        }
        if (row.Figure)
            figure = row.Figure();
        else
            row.Once();
        benchmark::ClobberMemory();
    }
    isChanged = row.ChangesDocument;
    state.SetLabel(row.Yardsticks);
    state.counters["bytes"] = static_cast<double>(bytes.size());
    state.counters["figure"] = figure;
}

/// Registers the rows by size, so that each document is created once.
void Register(const std::vector<Row>& rows, std::int64_t largest) {
    for (const char* const kind :
         {"Track", "Element", "Terrain", "Environments", "Textures", "Window", "Program"})
        for (const std::int64_t size : {1, 100, 256, 500, 512, 1000, 1024, 2048, 10'000, 100'000, 1'000'000})
            for (const Row& row : rows) {
                if (row.Kind() != kind || size > largest ||
                    !std::count(row.Sizes.begin(), row.Sizes.end(), size))
                    continue;
                auto* const bench = benchmark::RegisterBenchmark(
                    row.Name.c_str(), [&](benchmark::State& state) { Run(state, row); });
                bench->Arg(size);
                if (row.Name.ends_with("Disk"))
                    bench->UseRealTime();
                if (row.Figure || HasFiles(row))
                    bench->Iterations(1);
                if (size == 1'000'000 || size == 1 || HasFiles(row))
                    bench->Repetitions(1);
            }
}

} // namespace
} // namespace railwright::bench

int main(int argc, char** argv) {
    using namespace railwright;
    benchmark::Initialize(&argc, argv);
    // Otherwise memory is returned to the system and allocated again at random.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    QApplication application(argc, argv);
    QApplication::setStyle(new ControlStyle);
    frmMain window;
    window.ShowTab(3); // a panel with previews
    window.show();
    const std::vector<bench::Row> rows = bench::Rows();
    bench::Register(rows, std::stoll(argv[1]));
    return benchmark::RunSpecifiedBenchmarks() > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
