#include "track/mNoLimits_TrackIO_1_3.h"

#include "base/FileName.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "tests/support/DocumentTest.h"

#include <atomic>
#include <cctype>
#include <cstdlib>
#include <new>
#include <sstream>

/// Total bytes allocated with `new` in this process, including freed ones.
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
#ifndef _WIN32 // Windows does not align lists and lacks this call
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

// Positions in a file, and the length of a file with an empty track.
constexpr std::size_t SubChunksOfRoot = 31; // the last byte of the number
constexpr std::size_t FirstTag = 32;
constexpr std::size_t LastChunkOfEmpty = 613;
constexpr std::size_t LengthOfEmpty = 665;

// Memory that a load may allocate: for a broken file of the fixtures, and per byte of any other file.
constexpr std::size_t MemoryForBroken = 20'000;
constexpr std::size_t MemoryForByte = 20;

/// @return the bytes of a notation: hexadecimal digits, letters after a dot, and runs of zeros as z and their
/// number.
static Bytes FromPaper(const std::string& paper) {
    Bytes bytes;
    std::istringstream words(paper);
    for (std::string word; words >> word;)
        if (word[0] == '.')
            bytes.insert(bytes.end(), word.begin() + 1, word.end());
        else if (word[0] == 'z')
            bytes.resize(bytes.size() + std::stoul(word.substr(1)));
        else
            for (std::size_t i = 0; i < word.size(); i += 2)
                bytes.push_back(static_cast<unsigned char>(std::stoul(word.substr(i, 2), nullptr, 16)));
    return bytes;
}

// All other tests compare the program with the tests' encoder. This one checks the encoder against bytes
// worked out by hand.
TEST_F(TrackFile, TheEncoderOfTheTestsComesToBytesWorkedOutByHand) {
    TrackDocument track;
    track.TrackHeader.TrackType = 2, track.TrackHeader.CarsPerTrain = 5;
    track.TrackHeader.NumTrains = 1;
    track.TrackHeader.Trains[0] = {.Flag = true, .Color = {0x010203}, .Name = "Ab"};
    track.TrackHeader.TrackColor[7] = 0xFFFFFF;
    track.TrackInfo.AuthorComments = "Hi";
    track.BezierCurve.NodeCount = 1;
    track.BezierCurve.Nodes = {{.Position = {1, -2, 0.5F},
                                .ControlIn = {100, 0, 0},
                                .ControlOut = {0, 0, -0.25F},
                                .Roll = 1.5F,
                                .FlagA = true,
                                .FlagB = true}};
    track.SegmentList = {{}, true, 1, {{.SegmentType = SegmentKind::Lift, .Color = {1, 2, 3}}}};
    TrackSegment& lift = track.SegmentList.Segments[0];
    lift.CustomColors = lift.Tunnel = lift.LiftFlag2 = true;
    lift.LiftByte = 7, lift.LiftValue1 = 8;
    const Bytes front = FromPaper(".NLIM 00000336  01030000 z16  00000003 "
                                  ".TRCK 00000282  00000002 00000001 00000005 "
                                  "      FF z7 00000002 .Ab 00010203 z12  z28 00FFFFFF z16  00000004 "
                                  ".INFO 0000001A  z16 00000002 .Hi  00000000 "
                                  ".BEZR 00000064  z16 00000001 "
                                  "      3F800000 C0000000 3F000000  42C80000 z8  z8 BE800000  3FC00000 "
                                  "      FF 00 FF z17  z16  00000000 "
                                  ".SEGM 00000072  00000001 FF z16 "
                                  "      00000002 FF 00000001 00000002 00000003 FF z15 "
                                  "      00000024 z3 07 z4 41000000 z4 z4 00 FF z14  z16  00000000 ");
    // The rest is as in an empty track, with an extra train, two letters, a node and a segment.
    Bytes file = FileOf(track);
    EXPECT_EQ(file.size(), LengthOfEmpty + 30 + 2 + 60 + 73);
    file.resize(front.size());
    ExpectSame(file, front);

    ElementDocument element = {.ChunkSize = 0x01020304, .NodeCount = 1, .Nodes = List<ElementNode>(2)};
    element.Nodes[0].ControlOut = {1, -2, 0.5F};
    ElementNode& end = element.Nodes[1];
    end.ControlIn = {100, 0, 0}, end.Position = {0, 0, -0.25F}, end.Roll = 1.5F, end.FlagA = true;
    ExpectSame(FileOf(element), FromPaper(".ELEM 01020304 z64 00000001 "
                                          "3F800000 C0000000 3F000000  42C80000 z8  z8 BE800000  3FC00000 "
                                          "FF 00 z8  z64 z4"));
}

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
    // One zeroed element follows those of the file.
    EXPECT_EQ(Track.TrackHeader.Trains.size(), static_cast<std::size_t>(Track.TrackHeader.NumTrains) + 1);
    ASSERT_EQ(Track.BezierCurve.Nodes.size(), static_cast<std::size_t>(Track.BezierCurve.NodeCount) + 1);
    EXPECT_EQ(Track.BezierCurve.Nodes.back().Position.X, 0);
    ExpectSamplesToComeBack({"harbor-comet.nltrack", "switchback-spur.nltrack", "timber-fox.nltrack"});
}

TEST_F(TrackFile, LargeTracksComeBackWholeWhereverTheyAreCut) {
    // More than one window of the reader and the writer.
    constexpr std::size_t Many = 3000;
    constexpr std::int32_t Long = 200'000;
    TrackDocument large = Random<TrackDocument>(3);
    const auto extend = [](std::int32_t& count, auto& items) {
        const auto kinds = static_cast<std::size_t>(count);
        ASSERT_GT(kinds, 0U);
        items.resize(kinds);
        count = Many;
        while (items.size() < Many)
            items.push_back(items[items.size() - kinds]);
    };
    extend(large.BezierCurve.NodeCount, large.BezierCurve.Nodes);
    extend(large.SegmentList.SegmentCount, large.SegmentList.Segments);
    extend(large.FundamentalNodes.Count, large.FundamentalNodes.Items);
    extend(large.SceneryObjects.Count, large.SceneryObjects.Items);
    extend(large.WoodCatwalks.Count, large.WoodCatwalks.Items);
    large.WoodCatwalks.Items[7].ExtraBytes = Long;
    large.Terrain.HasTerrain = true;
    large.Terrain.GridSizeX = 201;
    large.Terrain.GridSizeZ = 203;
    large.Terrain.Heights.assign(201 * 203, 7.5F);
    for (std::size_t shift = 0; shift < 100; shift += 27) {
        SCOPED_TRACE(shift);
        large.TrackInfo.AuthorComments.assign(Long + shift, 'c');
        ExpectToComeBack(large, {{{.Noise = 0xA5, .UnknownShortBy = 4}}});
    }
}

TEST_F(TrackFile, BelievesTheNumberOfSubChunksAndNothingElse) {
    const Bytes empty = FileOf(TrackDocument{});
    Bytes file = FileOf(Random<TrackDocument>(1));
    file[SubChunksOfRoot] = 0;
    EXPECT_TRUE(Load(file));
    ExpectSame(FileOf(Track), empty);

    // If a chunk occurs twice, the later one counts.
    TrackDocument odd;
    odd.Environment = {{}, "first", "and more"};
    file = FileOf(odd);
    file[SubChunksOfRoot] = 4;
    file.insert(file.end(), empty.begin() + LastChunkOfEmpty, empty.end());
    EXPECT_TRUE(Load(file));
    ExpectSame(FileOf(Track), empty);

    // A colour has three bytes.
    odd.TrackHeader.TrackColor[0] = 0x123456;
    file = FileOf(odd);
    odd.TrackHeader.TrackColor[0] = 0xAB123456;
    ExpectSame(Saved(odd), file);

    // A tag can be any four bytes.
    file = FileOf(TrackDocument{});
    file.resize(FirstTag + 4);
    for (const auto& [tag, shown] : {std::pair("\0\xE9p7", "\?\?P7"), {" ~\x7F!", "\?~\?!"}}) {
        std::copy_n(tag, 4, &file[FirstTag]);
        EXPECT_EQ(Load(file).Reason, shown + std::string(": the file ends too early"));
    }

    // Terrain of size zero is still terrain. 200 segments of the smallest kind are not too many for the file.
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
    EXPECT_EQ(FileOf(TrackDocument{}).size(), LengthOfEmpty);
    Track.WoodCatwalks = {{}, 2, {{{}, 0x7FFFFFFF}, {{}, 0x7FFFFFFF}}}; // the sum overflows a 32-bit integer
    EXPECT_FALSE(SaveTrackFile(folder.Inside("large")));
    Track.WoodCatwalks.Items = {{{}, 0}, {{}, 0}};
    Track.WoodCatwalks.Items[0].ExtraBytes = static_cast<std::int32_t>(0x8000'0000 - ComputeChunkSizes());
    EXPECT_EQ(ComputeChunkSizes(), 0x8000'0000); // one byte too long
    EXPECT_FALSE(SaveTrackFile(folder.Inside("large")));
}

TEST_F(TrackFile, BrokenFilesAreRefusedWithTheFaultAndItsByte) {
    constexpr int BrokenFiles = 39;
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
        EXPECT_LT(allocated - before, MemoryForBroken);
        for (char& letter : loaded.Reason)
            letter = std::isalnum(letter) ? letter : '-';
        const std::string actual = '.' + std::to_string(loaded.Byte) + '.' + loaded.Reason;
        const std::string expected = broken.substr(broken.find('.'), broken.rfind('.') - broken.find('.'));
        EXPECT_EQ(actual.substr(0, expected.size()), expected);
        EXPECT_EQ(isTrack ? FileOf(Track) : FileOf(Element),
                  isTrack ? FileOf(TrackDocument{}) : FileOf(ElementDocument{}));
    }
    EXPECT_EQ(found, BrokenFiles);
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
            EXPECT_LT(allocated - before, MemoryForByte * good.size()) << at;
            const Bytes kept = FileOf(Track); // throws if a count exceeds its list
            EXPECT_TRUE(loaded || kept == empty) << at;
            EXPECT_LE(ComputeChunkSizes(), static_cast<std::int64_t>(good.size() + 4)) << at;
        }
    EXPECT_TRUE(FileOf(Track) == good);
    for (std::size_t size = good.size(); size-- > 0;) {
        std::filesystem::resize_file(folder.File(name), size);
        // The byte after the file reads as zero. It replaces the last byte of the file, or that of the root's
        // number of chunks.
        const bool loaded = LoadTrackFile(folder.Inside(name)).Done;
        EXPECT_EQ(loaded, size == good.size() - 1 || size == SubChunksOfRoot) << size;
        EXPECT_TRUE(FileOf(Track) == (size == good.size() - 1 ? good : empty)) << size;
    }
}

} // namespace railwright::testing
