#include "cli/Dump.h"
#include "cli/Steps.h"
#include "documents/DocumentKinds.h"
#include "drawing/SvgPictureBox.h"
#include "fuzz/Fuzz.h"
#include "tools/mNLT_Overview.h"

#include <sstream>

// Available with the address sanitizer.
extern "C" [[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*,
                                                                                std::size_t),
                                                                       void (*)(const volatile void*));
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_allocated_size(const volatile void*);

using namespace railwright;
using namespace railwright::fuzz;

namespace {

/// Growth of the heap during a measurement: current and highest.
bool isMeasured = false;
std::ptrdiff_t used = 0, peak = 0;

void Taken(const volatile void*, std::size_t size) {
    if (isMeasured)
        peak = std::max(peak, used += static_cast<std::ptrdiff_t>(size));
}
void GivenBack(const volatile void* memory) {
    if (isMeasured && memory != nullptr)
        used -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(memory));
}

FilePath FileOf(const DocumentKind& kind) {
    return FilePath::FromUser("a" + std::string(kind.Extension));
}

/// @return the file of the open document.
Bytes Saved(const DocumentKind& kind) {
    const MemoryFiles files;
    Require(kind.Save(FileOf(kind)).Done, "what is in hand can be saved");
    return *files.Find(FileOf(kind));
}

/// @return false if the file cannot be loaded. Then requires a reason and an empty document.
bool Load(const DocumentKind& kind, const Bytes& file) {
    static const bool hooked = __sanitizer_install_malloc_and_free_hooks != nullptr &&
                               __sanitizer_install_malloc_and_free_hooks(Taken, GivenBack) > 0;
    kind.Clear();
    static const Bytes empty[] = {Saved(TrackKind), Saved(ElementKind)};
    const MemoryFiles files;
    WriteWholeFile(FileOf(kind), file);
    used = peak = 0;
    isMeasured = hooked;
    const FileResult loaded = kind.Load(FileOf(kind));
    isMeasured = false;
    // A node of RASC takes 16 bytes for 4 in the file. Its supports are in a list that doubles, and take as
    // much again as the file.
    Require(peak <= 6 * std::ssize(file) + 8192, "a load takes a small multiple of the file");
    static double largest = 0;
    if (const double share = static_cast<double>(peak) / static_cast<double>(file.size());
        file.size() >= 10'000 && share > largest)
        std::fprintf(stderr, "heap for each byte of a large file: %.2f\n", largest = share);
    Require(loaded.Done == loaded.Reason.empty() && loaded.Byte >= FileResult::NoByte &&
                loaded.Byte <= std::ssize(file),
            "a failure has a reason and a byte of the file");
    Require(loaded.Done || Saved(kind) == empty[&kind == &ElementKind], "a failure leaves an empty document");
    return loaded.Done;
}

/// Runs every report and drawing on the open document.
/// @return the drawings, which are the same without an analysis.
std::string Drawings(bool isTrack) {
    const MemoryFiles none;
    std::string drawings[2];
    TextOutput nowhere([](std::string_view) {});
    const DocumentKind& kind = isTrack ? TrackKind : ElementKind;
    const auto draw = [&](std::string& drawing, void (*drawBoth)(PictureBox&, PictureBox&)) {
        TextOutput out([&](std::string_view piece) { drawing += piece; });
        SvgPictureBox plan(out), side(out);
        drawBoth(plan, side);
        out.Flush();
    };
    kind.Analyze();
    draw(drawings[0], kind.Draw);
    draw(drawings[1], kind.DrawWhileSampling);
    Require(drawings[0] == drawings[1], "the drawings are the same");
    if (isTrack) {
        std::string report;
        TextOutput out([&](std::string_view piece) { report += piece; });
        PrintTrackOverview(out, FileOf(TrackKind), {});
        TrackMeasures analyzed;
        analyzed.Length = TrackPolylineLength;
        for (const Vector3& point : TrackPolyline)
            analyzed.Box.Include(point);
        // Only the printed report replaces control characters.
        Require(report.find("\uFFFD") != std::string::npos ||
                    report == BuildTrackOverview(FileOf(TrackKind), {}, analyzed),
                "the reports are the same");
    }
    (isTrack ? DumpTrack : DumpElement)(nowhere);
    return drawings[0];
}

} // namespace

/// The input is a file of the kind that the build names, which must survive a save. For a chain it is of
/// either kind, followed by a NUL and steps, one per line. A step that does not fit is ignored.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view target = RAILWRIGHT_TARGET;
    const bool isTrack = target == "track" || (target == "chain" && size > 0 && (*data | 0x20) != 'e');
    const DocumentKind& kind = isTrack ? TrackKind : ElementKind;
    const Bytes input(data, data + size);
    if (!Load(kind, input))
        return 0;
    std::string drawings;
    if (target == "chain") {
        std::istringstream lines({std::find(input.rbegin(), input.rend(), 0).base(), input.end()});
        std::string step;
        for (int i = 0; i < 16 && std::getline(lines, step); ++i)
            (isTrack ? ApplyTrackSteps : ApplyElementSteps)(std::span(&step, 1), {});
        drawings = Drawings(isTrack);
        Require(drawings.find("nan") == std::string::npos && drawings.find("inf") == std::string::npos,
                "all that is drawn has a place");
    }
    const Bytes saved = Saved(kind);
    Require(Load(kind, saved), "what was saved can be loaded");
    Require(Saved(kind) == saved, "what was saved is saved the same again");
    // Not for an element: its first node is always stored as the origin, but a tool may leave it close to
    // that.
    Require(target != "chain" || !isTrack || Drawings(true) == drawings, "what was saved is drawn the same");
    return 0;
}
