#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "platform/Paths.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/RandomDocuments.h"
#include "tests/support/TemporaryFolder.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace railwright {
namespace {

namespace fs = std::filesystem;
using testing::Kept;
using testing::MemoryFiles;
using testing::ReadBytes;

struct Fault {
    std::int64_t Byte;
    const char* Reason;
};

// An empty track has its chunks at 0 NLIM, 32 TRCK, 104 INFO, 136 BEZR, 184 SEGM, 233 SUPP, then lists of 48
// bytes each, 277 FUND, 325 RASC, 373 FREN, 421 TUBE, 469 CATW, 517 SCEN, 565 SCOB, and at 613 ENVC. The
// count of a list is 24 bytes behind its start. Terrain stands at 613 and takes 89 bytes.
const std::map<std::string, Fault> Faults = {
    {"empty-file.nltrack", {0, "the file is empty"}},
    {"wrong-tag.nltrack", {0, "NLIM"}},
    {"node-count-negative.nltrack", {160, "BEZR: NodeCount is negative (-1)"}},
    {"node-count-huge.nltrack", {160, "BEZR: NodeCount of 2147483647 needs at least 128849018820 bytes"}},
    {"footer-count-huge.nltrack", {301, "FUND: Count of 2147483647"}},
    {"prefab-node-count-huge.nltrack", {349, "RASC: NodeCount of 2147483647"}},
    {"free-node-count-huge.nltrack", {397, "FREN: Count of 2147483647"}},
    {"beam-count-huge.nltrack", {445, "TUBE: Count of 2147483647"}},
    {"catwalk-count-huge.nltrack", {493, "CATW: Count of 2147483647"}},
    {"tree-count-huge.nltrack", {541, "SCEN: TreeCount of 2147483647"}},
    {"object-count-huge.nltrack", {589, "SCOB: Count of 2147483647"}},
    {"segment-count-huge.nltrack", {192, "SEGM: SegmentCount of 2147483647"}},
    {"train-count-huge.nltrack", {44, "TRCK: NumTrains of 2147483647"}},
    // From byte 52 on 613 bytes remain, and 22 trains take 28 each.
    {"train-count-just-too-large.nltrack", {44, "NumTrains of 22 needs at least 616 bytes, 613 remain"}},
    {"name-length-past-end.nltrack", {60, "TRCK: the length of Name, 1000"}},
    {"name-length-wraps-around.nltrack", {60, "the length of Name, 2147483647"}},
    {"comment-length-past-end.nltrack", {128, "INFO: the length of AuthorComments, 535"}},
    {"object-text-length-negative.nltrack", {593, "SCOB: the length of Text2 is negative (-1)"}},
    {"object-file-length-past-end.nltrack", {597, "SCOB: the length of FileName, 5000"}},
    {"support-count-huge.nltrack", {353, "RASC: SupportCount of 2147483647"}},
    {"support-count-negative.nltrack", {353, "RASC: SupportCount is negative (-2)"}},
    {"extra-bytes-negative.nltrack", {521, "CATW: ExtraBytes is negative (-1)"}},
    {"extra-bytes-huge.nltrack", {521, "CATW: ExtraBytes of 2147483647"}},
    {"terrain-product-overflows.nltrack", {625, "TERA: a grid of 65536 x 65536"}},
    {"terrain-size-huge.nltrack", {625, "TERA: a grid of 2147483647 x 2147483647"}},
    {"terrain-size-negative.nltrack", {621, "TERA: GridSizeX is negative (-1)"}},
    {"sub-chunks-negative.nltrack", {132, "INFO: SubChunks is negative (-1)"}},
    {"sub-chunks-too-many.nltrack", {665, "the file ends too early"}},
    {"sub-chunks-huge.nltrack", {665, "the file ends too early"}},
    {"unknown-chunk-leads-out.nltrack", {617, "an unknown chunk of 1000 bytes"}},
    {"unknown-chunk-size-negative.nltrack", {617, "an unknown chunk of -8 bytes"}},
    {"unknown-chunk-size-huge.nltrack", {617, "an unknown chunk of 2147483647 bytes"}},
    {"truncated-in-nlim.nltrack", {10, "NLIM: the file ends too early"}},
    {"truncated-in-trck.nltrack", {42, "TRCK: the file ends too early"}},
    {"truncated-in-info.nltrack", {114, "INFO: the file ends too early"}},
    {"truncated-in-bezr.nltrack", {146, "BEZR: the file ends too early"}},
    {"truncated-in-segm.nltrack", {194, "SEGM: the file ends too early"}},
    {"truncated-in-supp.nltrack", {243, "SUPP: the file ends too early"}},
    {"truncated-in-fund.nltrack", {287, "FUND: the file ends too early"}},
    {"truncated-in-rasc.nltrack", {335, "RASC: the file ends too early"}},
    {"truncated-in-fren.nltrack", {383, "FREN: the file ends too early"}},
    {"truncated-in-tube.nltrack", {431, "TUBE: the file ends too early"}},
    {"truncated-in-catw.nltrack", {479, "CATW: the file ends too early"}},
    {"truncated-in-scen.nltrack", {527, "SCEN: the file ends too early"}},
    {"truncated-in-scob.nltrack", {575, "SCOB: the file ends too early"}},
    {"truncated-in-tera.nltrack", {623, "TERA: the file ends too early"}},
    {"truncated-in-envc.nltrack", {712, "ENVC: the file ends too early"}},
    {"truncated-between-chunks.nltrack", {613, "the file ends too early"}},
    {"element-empty-file.nlelem", {0, "the file is empty"}},
    {"element-wrong-tag.nlelem", {0, "ELEM"}},
    {"element-node-count-negative.nlelem", {72, "ELEM: NodeCount is negative (-1)"}},
    {"element-node-count-huge.nlelem", {72, "ELEM: NodeCount of 2147483647 needs at least 107374182350"}},
    {"element-truncated-in-head.nlelem", {40, "ELEM: the file ends too early"}},
    {"element-truncated-in-node-count.nlelem", {74, "ELEM: the file ends too early"}},
    // The byte behind the file reads as zero and completes the count.
    {"element-ends-in-node-count.nlelem", {72, "NodeCount of 256 needs at least 12800 bytes, 0 remain"}},
    {"element-truncated-in-record.nlelem", {72, "NodeCount of 2 needs at least 100 bytes, 84 remain"}},
};

TEST(BrokenFiles, AreRefusedWithTheFaultAndItsByte) {
    std::size_t found = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(RAILWRIGHT_FIXTURES) / "broken")) {
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        const auto fault = Faults.find(name);
        ASSERT_NE(fault, Faults.end()) << "has no row";
        ++found;
        const std::string path = PathFromOutside(entry.path().string());
        Track = testing::RandomTrack(1);
        Element = testing::RandomElement(1);
        const bool isTrack = HasExtension(name, TrackExtension);
        const std::size_t before = testing::AllocatedBytes();
        const FileResult loaded = isTrack ? LoadTrackFile(path) : LoadElementFile(path);
        EXPECT_LT(testing::AllocatedBytes() - before, 20'000U);
        EXPECT_FALSE(loaded);
        EXPECT_EQ(loaded.Byte, fault->second.Byte);
        EXPECT_NE(loaded.Reason.find(fault->second.Reason), std::string::npos) << loaded.Reason;
        if (isTrack)
            EXPECT_TRUE(Kept(Track) == Kept(TrackDocument{}));
        else
            EXPECT_TRUE(Kept(Element) == Kept(ElementDocument{}));
    }
    EXPECT_EQ(found, Faults.size());
}

TEST(BrokenFiles, EveryTruncationIsRefused) {
    const auto whole = ReadBytes(testing::Example("switchback-spur.nltrack"));
    const std::string empty = Kept(TrackDocument{});
    MemoryFiles files;
    auto& bytes = files.Content["a.nltrack"] = whole;
    while (bytes.size() > 0) {
        bytes.pop_back();
        // The byte behind the file reads as zero: the file's last one, or that of the root's number of
        // chunks.
        const bool reads = bytes.size() == whole.size() - 1 || bytes.size() == 31;
        EXPECT_EQ(static_cast<bool>(LoadTrackFile("a.nltrack")), reads) << bytes.size();
        EXPECT_EQ(Kept(Track) == empty, bytes.size() < whole.size() - 1) << bytes.size();
    }
}

TEST(BrokenFiles, NoSingleByteBringsALoadDown) {
    MemoryFiles files;
    Track = testing::RandomTrack(5);
    ASSERT_TRUE(SaveTrackFile("a.nltrack"));
    const auto good = files.Content["a.nltrack"];
    const std::string empty = Kept(TrackDocument{});
    auto& bytes = files.Content["a.nltrack"];
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (const int value : {0x00, 0x7F, 0x80, 0xFF}) {
            bytes[at] = static_cast<unsigned char>(value);
            const std::size_t before = testing::AllocatedBytes();
            const bool loaded{LoadTrackFile("a.nltrack")};
            EXPECT_LT(testing::AllocatedBytes() - before, 20 * bytes.size()) << at;
            const std::string kept = Kept(Track); // fails where a count is beyond its list
            EXPECT_TRUE(loaded || kept == empty) << at;
            EXPECT_LE(ComputeChunkSizes(), static_cast<std::int64_t>(bytes.size() + 4)) << at;
        }
        bytes[at] = good[at];
    }
}

} // namespace
} // namespace railwright
