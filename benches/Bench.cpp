#include "benches/Documents.h"
#include "benches/MemoryFiles.h"
#include "benches/Table.h"
#include "benches/Yardsticks.h"

#include "element/mNoLimits_ElementIO_1_3.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "platform/UserLocale.h"
#include "platform/svg/SvgPictureBox.h"
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#include "shell/mMain.h"
#include "tools/mNLE_Reverse.h"
#include "tools/mNLE_Rotate.h"
#include "tools/mNLT_3DSRenamer.h"
#include "tools/mNLT_Backwards.h"
#include "tools/mNLT_Mirror.h"
#include "tools/mNLT_Move.h"
#include "tools/mNLT_Overview.h"
#include "tools/mNLT_Remove.h"
#include "tools/mNLT_Rotate.h"
#include "tools/mNLT_Scale.h"
#include "tools/mNLT_ShuttleMake.h"
#include "tools/mNLT_Smoother.h"
#include "tools/mNLT_TunnelTest.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>

#include <QApplication>
#include <QProcess>
#include <malloc.h>
#include <unistd.h>

namespace railwright::bench {
namespace {

/// What a row does once, and what it does unmeasured before each time.
struct Work {
    Row What;
    std::function<void()> Once;
    std::function<void()> Before = {};
    bool ChangesDocument = false;
    /// Instead of all that: a figure that is printed as it is.
    std::function<double()> Figure = {};
};

std::string folder;
Sample sample; // the file of the document in hand
FileBytes copied;
SvgPictureBox svgPlan, svgSide;
std::string inHand; // kind and size
bool isChanged = false;
std::map<std::string, std::int64_t> lengths; // of the files

void Must(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << sample.Path << ": " << what << '\n';
    std::filesystem::remove_all(folder);
    std::exit(EXIT_FAILURE);
}

TrackFigures FiguresOfTrack() {
    const auto& nodes = Track.BezierCurve;
    const BezierNode& last = nodes.Nodes.at(static_cast<std::size_t>(nodes.NodeCount) - 1);
    const auto objects = static_cast<std::size_t>(Track.SceneryObjects.Count);
    return {nodes.NodeCount,
            Track.SegmentList.SegmentCount,
            static_cast<std::int64_t>(Track.PreFabSupports.Supports.size()),
            Track.SupportBeams.Count,
            Track.Scenery.TreeCount,
            Track.SceneryObjects.Count,
            static_cast<std::int64_t>(Track.Terrain.Heights.size()),
            last.Position.X,
            last.Roll,
            Track.SceneryObjects.Items.at(objects - 1).FileName};
}

void Load(bool isTrack) {
    Must(bool(isTrack ? LoadTrackFile(sample.Path) : LoadElementFile(sample.Path)), "does not load");
}
void Save(bool isTrack) {
    Must(bool(isTrack ? SaveTrackFile(sample.Path) : SaveElementFile(sample.Path)), "cannot be saved");
}
void InMemory(void (*work)(bool), bool isTrack) {
    const MemoryFiles memory(sample.Bytes);
    work(isTrack);
}

/// What is measured and the yardsticks have to come to the same.
void CheckTrack() {
    Must(QDataStreamReader(sample.Bytes) == FiguresOfTrack(), "the QDataStreamReader reads something else");
    Must(QDataStreamReader(sample.Path) == FiguresOfTrack(), "the QDataStreamReader reads something else");
    const double length = TextbookSamples();
    Must(std::abs(static_cast<double>(TrackLength()) - length) < 0.05 * length, "the lengths differ");
    const FileBytes before = sample.Bytes;
    Save(true);
    Must(ReadWholeFile(sample.Path, 0, sample.Bytes) && sample.Bytes == before, "does not come back");
}

/// Makes the document of a kind and a size the one in hand, as its file has it, and analyses it.
void Prepare(const std::string& kind, std::int64_t size) {
    const std::string wanted = kind + std::to_string(size);
    const bool isTrack = kind != "Element";
    if (inHand != wanted) {
        std::filesystem::remove(sample.Path);
        sample = isTrack ? kind == "Track" ? MakeTrack(folder, size) : MakeTerrain(folder, size)
                         : MakeElement(folder, size);
        lengths[wanted] = static_cast<std::int64_t>(sample.Bytes.size());
        ByteSwapCopy(sample.Bytes, copied = sample.Bytes);
        Load(isTrack);
        if (isTrack)
            CheckTrack();
        inHand = wanted;
        isChanged = true;
    }
    if (!std::exchange(isChanged, false))
        return;
    InMemory(Load, isTrack);
    isTrack ? AnalyzeTrack() : AnalyzeElement();
}

/// @return a line of /proc/self/status in bytes.
double ProcessStatus(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (double kilobytes = 0; word == name && status >> kilobytes)
            return 1024 * kilobytes;
    return 0;
}

/// @return by how many times the length of the file the process grows at most while it loads.
double PeakOfLoad() {
    ClearTrackDocument();
    TrackPolyline = {};
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5; // the peak begins anew
    const double before = ProcessStatus("VmRSS:");
    InMemory(Load, true);
    return (ProcessStatus("VmHWM:") - before) / static_cast<double>(sample.Bytes.size());
}

double Seconds(const char* program) {
    const auto start = std::chrono::steady_clock::now();
    Must(QProcess::execute(program, {RAILWRIGHT_EXAMPLES "/harbor-comet.nltrack"}) == 0, program);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// @return how long the program takes to show a file, in times of an empty window; the median of 20 runs.
double StartInEmptyWindows() {
    std::vector<double> ratios;
    for (int run = 0; run < 20; ++run) {
        const double empty = Seconds(EMPTY_START);
        ratios.push_back(Seconds(RAILWRIGHT_START) / empty);
    }
    std::sort(ratios.begin(), ratios.end());
    return (ratios[9] + ratios[10]) / 2;
}

std::string Report() {
    return BuildTrackOverview(sample.Path, UserNumberSeparators());
}
void DrawSvg(void (*draw)(PictureBox&, PictureBox&)) {
    draw(svgPlan, svgSide);
    benchmark::DoNotOptimize(svgPlan.Document().size() + svgSide.Document().size());
}

std::vector<Work> Works() {
    using Names = std::vector<std::string>;
    const Names files = {"ByteSwapCopyTouched", "ByteSwapCopyFresh", "QDataStreamReader"};
    const Names samples = {"TextbookSamples"};
    std::vector<Work> works;
    const auto add = [&](const std::string& name, const Names& yardsticks, std::function<void()> once) {
        works.push_back({{name, {}, yardsticks}, std::move(once)});
    };
    const auto tool = [&](const char* name, std::function<void()> once, std::function<void()> before = {}) {
        works.push_back({{name, {}, {"ByteSwapCopyTouched"}}, std::move(once), std::move(before), true});
    };
    const auto addFiles = [&](const std::string& kind) {
        const bool isTrack = kind != "Element/";
        add(kind + "ByteSwapCopyTouched", {}, [] { ByteSwapCopy(sample.Bytes, copied); });
        add(kind + "ByteSwapCopyFresh", {}, [] {
            FileBytes fresh(sample.Bytes.size());
            ByteSwapCopy(sample.Bytes, fresh);
            benchmark::DoNotOptimize(fresh.data());
        });
        if (isTrack) {
            add(kind + "QDataStreamReader", {}, [] { QDataStreamReader(sample.Bytes); });
            add(kind + "QDataStreamReaderDisk", {}, [] { QDataStreamReader(sample.Path); });
        }
        add(kind + "Load", files, [=] { InMemory(Load, isTrack); });
        add(kind + "LoadDisk", {"QDataStreamReaderDisk"}, [=] { Load(isTrack); });
        add(kind + "Save", files, [=] { InMemory(Save, isTrack); });
        add(kind + "SaveDisk", {}, [=] { Save(isTrack); });
    };
    addFiles("Track/");
    auto* const window = &frmMain::Instance();
    add("Track/LoadPeakMemory, times the file", {}, {});
    works.back().Figure = PeakOfLoad;
    add("Track/TextbookSamples", {}, [] { benchmark::DoNotOptimize(TextbookSamples()); });
    works.back().What.Sizes = {10'000};
    add("Track/Analysis", samples, AnalyzeTrack);
    add("Track/Length", samples, [] { benchmark::DoNotOptimize(TrackLength()); });
    add("Track/Report", samples, [] { Report(); });
    add("Track/DrawSvg", samples, [] { DrawSvg(DrawTrackPreview); });
    add("Track/DrawQt", samples, [=] { DrawTrackPreview(window->Plan(), window->Side()); });
    add("Track/PaintQt", samples, [=] { window->Plan().Drawn(1), window->Side().Drawn(1); });
    // What RefreshTrackTools does, but for the widgets of the panels.
    add("Track/Refresh", samples, [=] {
        AnalyzeTrack();
        DrawTrackPreview(window->Plan(), window->Side());
        Report();
    });
    add("Track/RefreshAndPaintWindow", samples, [=] {
        RefreshTrackTools();
        window->grab();
    });
    tool("Track/Move", [] { MoveTrack({0.25F, 0, 0}, true); });
    tool("Track/Scale", [] { ScaleTrack(-1, true); });
    tool("Track/Rotate", [] { RotateTrack(5, true); });
    tool("Track/Mirror", [] { MirrorTrack(MirrorMode::EastWest, true); });
    tool("Track/Tunnels", [] { SetTunnels(TunnelMode::Toggle); });
    tool("Track/Backwards", RebuildBackwards);
    tool("Track/Remove",
         [] { RemoveTrackData({.Tunnels = true, .CustomColors = true, .PreFabSupports = true}); });
    tool("Track/Rename", [] { RenameSceneryObject(0, "harbour_crane_0.3ds", true); });
    tool("Track/Smooth", SmoothTrackNodes);
    works.back().What.Sizes = {100, 500};
    tool("Track/MakeShuttle", MakeShuttle, [] { InMemory(Load, true); });
    add("Track/OpenToSave", {"QDataStreamReader"}, [] {
        Load(true);
        AnalyzeTrack();
        DrawSvg(DrawTrackPreview);
        Report();
        MirrorTrack(MirrorMode::EastWest, true);
        Save(true);
    });
    works.back().ChangesDocument = true;
    addFiles("Element/");
    add("Element/Analysis", {}, AnalyzeElement);
    add("Element/DrawSvg", {}, [] { DrawSvg(DrawElementPreview); });
    add("Element/Refresh", {}, [=] {
        AnalyzeElement();
        DrawElementPreview(window->Plan(), window->Side());
    });
    tool("Element/Reverse", ReverseElement);
    tool("Element/Rotate", [] { RotateElement(ElementAxis::Y, 5); });
    addFiles("Terrain/");
    add("Terrain/Report", {"ByteSwapCopyTouched"}, [] { Report(); });
    add("Start/HarborComet, times an empty window", {}, {});
    works.back().Figure = StartInEmptyWindows;
    works.back().What.Sizes = {1};
    return works;
}

void Run(benchmark::State& state, const Work& work) {
    if (work.What.Name[0] != 'S')
        Prepare(work.What.Kind(), state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        if (work.Figure)
            state.counters["figure"] = work.Figure();
        if (work.Before) {
            state.PauseTiming();
            work.Before();
            state.ResumeTiming();
        }
        if (work.Once)
            work.Once();
        benchmark::ClobberMemory();
    }
    isChanged = work.ChangesDocument;
}

/// Registers all works size by size, so that each document is made once.
std::vector<Row> Register(std::vector<Work>& works, bool quick) {
    std::vector<Row> rows;
    for (Work& work : works) {
        Row& row = work.What;
        if (row.Sizes.empty())
            row.Sizes = row.Kind() == "Terrain"
                            ? std::vector<std::int64_t>{256, 512, 1024, 2048}
                            : std::vector<std::int64_t>{100, 1000, 10'000, 100'000, 1'000'000};
        if (quick)
            std::erase_if(row.Sizes, [](std::int64_t size) { return size > 10'000; });
        row.IsFigure = bool(work.Figure);
        rows.push_back(row);
    }
    for (const char* const kind : {"Track", "Element", "Terrain", "Start"})
        for (const std::int64_t size : {1, 100, 256, 500, 512, 1000, 1024, 2048, 10'000, 100'000, 1'000'000})
            for (const Work& work : works) {
                const auto& sizes = work.What.Sizes;
                if (work.What.Kind() != kind || std::find(sizes.begin(), sizes.end(), size) == sizes.end())
                    continue;
                auto* const bench = benchmark::RegisterBenchmark(
                    work.What.Name.c_str(), [&work](benchmark::State& state) { Run(state, work); });
                bench->Arg(size)->UseRealTime();
                if (work.Figure)
                    bench->Iterations(1);
                if (size == 1'000'000 || work.Figure)
                    bench->Repetitions(1);
            }
    return rows;
}

} // namespace
} // namespace railwright::bench

int main(int argc, char** argv) {
    using namespace railwright;
    using namespace railwright::bench;
    const bool quick = argc > 1 && argv[1] == std::string("--quick");
    std::string few = quick ? "--benchmark_min_time=0.03" : "--benchmark_min_time=0.1";
    std::string repeated = "--benchmark_repetitions=3";
    std::vector<char*> arguments = {argv[0], few.data(), repeated.data()};
    arguments.insert(arguments.end(), argv + (quick ? 2 : 1), argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    // Large blocks come fresh from the system each time, as in a process that has just been started.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    int one = 1;
    QApplication application(one, argv);
    QApplication::setStyle(new ControlStyle);
    frmMain window;
    folder =
        (std::filesystem::temp_directory_path() / ("railwright-bench-" + std::to_string(getpid()))).string() +
        '/';
    std::filesystem::create_directories(folder);
    std::vector<Work> works = Works();
    const std::vector<Row> rows = Register(works, quick);
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::filesystem::remove_all(folder);
    table.Print(rows, lengths);
    return table.Failed ? EXIT_FAILURE : EXIT_SUCCESS;
}
