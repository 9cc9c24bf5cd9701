#include "track/mNoLimits_TrackIO_1_3.h"

#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "tests/support/DocumentTest.h"

#include <atomic>
#include <cctype>
#include <cstdlib>
#include <new>

/// All bytes that the test program has asked the heap for with `new` so far, given back or not.
static std::atomic<std::size_t> allocated = 0;

[[gnu::noinline]] void* operator new(std::size_t size) {
    allocated += size;
    if (void* const memory = std::malloc(std::max<std::size_t>(size, 1)))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    allocated += size;
    return std::malloc(std::max<std::size_t>(size, 1));
}
#ifndef _WIN32 // where a list is not aligned, and the runtime has no such call
[[gnu::noinline]] void* operator new(std::size_t size, std::align_val_t alignment) {
    allocated += size;
    if (void* const memory = std::aligned_alloc(static_cast<std::size_t>(alignment), size))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
#endif
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace railwright::testing {

using TrackFile = DocumentTest<Track, LoadTrackFile, SaveTrackFile>;

TEST_F(TrackFile, TracksComeBackWholeFromAnyForm) {
    const Form forms[] = {{},
                          {.Noise = 0xA5, .True = 0x01},
                          {.Case = 0x20},
                          {.Reversed = true, .SizeError = 1'000'000},
                          {.SizeError = -1'000'000},
                          {.UnknownShortBy = 0},
                          {.SizeError = 0x41414141, .UnknownShortBy = 0}, // most sizes read as letters
                          {.UnknownShortBy = 4},
                          {0x5A, 0x80, {0, 0xFF, 0x7F, 3}, 0x20, true, -1, 4}};
    for (unsigned seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        ExpectToComeBack(Random<TrackDocument>(seed), forms);
    }
    EXPECT_EQ(Track.FileHeader.Version[1], 0xFF);
    // One zeroed element stands behind those of the file.
    EXPECT_EQ(Track.TrackHeader.Trains.size(), static_cast<std::size_t>(Track.TrackHeader.NumTrains) + 1);
    ASSERT_EQ(Track.BezierCurve.Nodes.size(), static_cast<std::size_t>(Track.BezierCurve.NodeCount) + 1);
    EXPECT_EQ(Track.BezierCurve.Nodes.back().Position.X, 0);
    ExpectSamplesToComeBack({"harbor-comet.nltrack", "switchback-spur.nltrack", "timber-fox.nltrack"});
}

TEST_F(TrackFile, LargeTracksComeBackWholeWhereverTheyAreCut) {
    // Far more than is in memory at once while a file is read or written.
    TrackDocument large = Random<TrackDocument>(3);
    const auto extend = [](std::int32_t& count, auto& items) {
        const auto kinds = static_cast<std::size_t>(count);
        ASSERT_GT(kinds, 0U);
        items.resize(kinds);
        for (count = 3000; items.size() < 3000;)
            items.push_back(items[items.size() - kinds]);
    };
    extend(large.BezierCurve.NodeCount, large.BezierCurve.Nodes);
    extend(large.SegmentList.SegmentCount, large.SegmentList.Segments);
    extend(large.FundamentalNodes.Count, large.FundamentalNodes.Items);
    extend(large.SceneryObjects.Count, large.SceneryObjects.Items);
    extend(large.WoodCatwalks.Count, large.WoodCatwalks.Items);
    large.WoodCatwalks.Items[7].ExtraBytes = 200'000;
    large.Terrain.HasTerrain = true;
    large.Terrain.GridSizeX = 201;
    large.Terrain.GridSizeZ = 203;
    large.Terrain.Heights.assign(201 * 203, 7.5F);
    for (std::size_t shift = 0; shift < 100; shift += 27) {
        SCOPED_TRACE(shift);
        large.TrackInfo.AuthorComments.assign(200'000 + shift, 'c');
        ExpectToComeBack(large, {{{.Noise = 0xA5, .UnknownShortBy = 4}}});
    }
}

TEST_F(TrackFile, BelievesTheNumberOfSubChunksAndNothingElse) {
    const Bytes empty = FileOf(TrackDocument{});
    Bytes file = FileOf(Random<TrackDocument>(1));
    file[31] = 0; // the root's
    EXPECT_TRUE(Load(file));
    ExpectSame(FileOf(Track), empty);

    // A chunk that comes twice: the later one counts.
    TrackDocument odd;
    odd.Environment = {{}, "first", "and more"};
    file = FileOf(odd);
    file[31] = 4;
    file.insert(file.end(), empty.begin() + 613, empty.end());
    EXPECT_TRUE(Load(file));
    ExpectSame(FileOf(Track), empty);

    // A colour has three bytes.
    odd.TrackHeader.TrackColor[0] = 0x123456;
    file = FileOf(odd);
    odd.TrackHeader.TrackColor[0] = 0xAB123456;
    ExpectSame(Saved(odd), file);

    // A tag can be anything.
    file = FileOf(TrackDocument{});
    file.resize(36);
    for (const auto& [tag, shown] : {std::pair("\0\xE9p7", "\?\?P7"), {" ~\x7F!", "\?~\?!"}}) {
        std::copy_n(tag, 4, &file[32]);
        EXPECT_EQ(Load(file).Reason, shown + std::string(": the file ends too early"));
    }

    // Terrain of no size is terrain all the same, and the smallest segments need no more than they have.
    odd.Terrain.HasTerrain = true;
    odd.SegmentList = {{}, true, 200, List<TrackSegment>(200, {.SegmentType = 7})};
    EXPECT_TRUE(Load(FileOf(odd)));
    EXPECT_TRUE(Track.Terrain.HasTerrain);
    Track.Terrain.GridSizeX = 2;
    Track.Terrain.Heights = {0, 10, 1, 11};
    EXPECT_EQ(Track.Terrain.HeightAt(1, 0), 10);
}

TEST_F(TrackFile, HasNamesOfItsOwnAndALengthWithinLimits) {
    ExpectNamesToBeHeeded(Random<TrackDocument>(1));
    EXPECT_EQ(FileOf(TrackDocument{}).size(), 665U);
    Track.WoodCatwalks = {{}, 2, {{{}, 0x7FFFFFFF}, {{}, 0x7FFFFFFF}}}; // beyond what a long can count
    EXPECT_FALSE(SaveTrackFile(folder.Inside("large")));
    Track.WoodCatwalks.Items[1].ExtraBytes -= static_cast<std::int32_t>(ComputeChunkSizes() - 0x8000'0000);
    EXPECT_EQ(ComputeChunkSizes(), 0x8000'0000); // one byte too many
    EXPECT_FALSE(SaveTrackFile(folder.Inside("large")));
}

TEST_F(TrackFile, BrokenFilesAreRefusedWithTheFaultAndItsByte) {
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RAILWRIGHT_FIXTURES "/broken")) {
        const std::string broken = entry.path().filename().string();
        SCOPED_TRACE(broken);
        ++found;
        Track = Random<TrackDocument>(1);
        Element = Random<ElementDocument>(1);
        const bool isTrack = HasExtension(broken, TrackExtension);
        const FilePath path = FilePath::FromUser(entry.path().string());
        const std::size_t before = allocated;
        FileResult loaded = isTrack ? LoadTrackFile(path) : LoadElementFile(path);
        EXPECT_LT(allocated - before, 20'000U);
        for (char& letter : loaded.Reason)
            letter = std::isalnum(letter) ? letter : '-';
        const std::string actual = '.' + std::to_string(loaded.Byte) + '.' + loaded.Reason;
        const std::string expected = broken.substr(broken.find('.'), broken.rfind('.') - broken.find('.'));
        EXPECT_EQ(actual.substr(0, expected.size()), expected);
        EXPECT_EQ(isTrack ? FileOf(Track) : FileOf(Element),
                  isTrack ? FileOf(TrackDocument{}) : FileOf(ElementDocument{}));
    }
    EXPECT_EQ(found, 39);
}

TEST_F(TrackFile, NoByteThatIsMissingOrWrongBringsALoadDown) {
    const Bytes good = FileOf(Random<TrackDocument>(14));
    const Bytes empty = FileOf(TrackDocument{});
    WriteBytes(folder.File(name), good);
    std::fstream file(folder.File(name), std::ios::binary | std::ios::in | std::ios::out);
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const int value : {0x00, 0x7F, 0x80, 0xFF, static_cast<int>(good[at])}) {
            file.seekp(static_cast<std::streamoff>(at)).put(static_cast<char>(value)).flush();
            const std::size_t before = allocated;
            const bool loaded{LoadTrackFile(folder.Inside(name))};
            EXPECT_LT(allocated - before, 20 * good.size()) << at;
            const Bytes kept = FileOf(Track); // throws where a count is beyond its list
            EXPECT_TRUE(loaded || kept == empty) << at;
            EXPECT_LE(ComputeChunkSizes(), static_cast<std::int64_t>(good.size() + 4)) << at;
        }
    EXPECT_TRUE(FileOf(Track) == good);
    for (std::size_t size = good.size(); size-- > 0;) {
        std::filesystem::resize_file(folder.File(name), size);
        // The byte behind the file reads as zero: the last of all, or that of the root's number of chunks.
        const bool loaded = LoadTrackFile(folder.Inside(name)).Done;
        EXPECT_EQ(loaded, size == good.size() - 1 || size == 31) << size;
        EXPECT_TRUE(FileOf(Track) == (size == good.size() - 1 ? good : empty)) << size;
    }
}

} // namespace railwright::testing
