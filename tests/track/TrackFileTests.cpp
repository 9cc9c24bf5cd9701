#include "track/mNoLimits_TrackIO_1_3.h"

#include "tests/support/DocumentTest.h"

namespace railwright::testing {

using TrackFile = DocumentTest<Track, LoadTrackFile, SaveTrackFile>;

TEST_F(TrackFile, EmptyTrackIs665Bytes) {
    Bytes bytes(665);
    const std::tuple<std::size_t, const char*, int> chunks[] = {
        {0, "NLIM", 657},   {32, "TRCK", 477}, {104, "INFO", 24}, {136, "BEZR", 40}, {184, "SEGM", 41},
        {233, "SUPP", 276}, {277, "FUND", 40}, {325, "RASC", 40}, {373, "FREN", 40}, {421, "TUBE", 40},
        {469, "CATW", 40},  {517, "SCEN", 88}, {565, "SCOB", 40}, {613, "ENVC", 44}};
    for (const auto& [at, tag, size] : chunks) {
        std::copy_n(tag, 4, &bytes[at]);
        bytes[at + 6] = static_cast<unsigned char>(size / 256);
        bytes[at + 7] = static_cast<unsigned char>(size % 256);
    }
    // Version 1.3, and how many chunks lie in the root, in TRCK, in SUPP and in SCEN.
    bytes[8] = bytes[564] = 1;
    bytes[9] = bytes[31] = 3;
    bytes[103] = 4;
    bytes[276] = 5;
    ExpectSame(Saved({}), bytes);
    EXPECT_EQ(Track.SupportHeader.ChunkSize, 276);
}

TEST_F(TrackFile, TracksComeBackWholeFromAnyForm) {
    const Form forms[] = {{},
                          {.Noise = 0xA5},
                          {.True = 0x01},
                          {.Case = 0x20},
                          {.Reversed = true},
                          {.SizeError = 1'000'000},
                          {.SizeError = -1'000'000},
                          {.UnknownShortBy = 0},
                          {.UnknownShortBy = 4},
                          {0x5A, 0x80, {0, 0xFF, 0x7F, 3}, 0x20, true, -1, 4}};
    for (unsigned seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        ExpectToComeBack(Random<TrackDocument>(seed), forms);
    }
    EXPECT_EQ(Track.FileHeader.Version[1], 0xFF);
    // One zeroed element stands behind those of the file.
    EXPECT_EQ(Track.TrackHeader.Trains.size(), static_cast<std::size_t>(Track.TrackHeader.NumTrains) + 1);
    EXPECT_EQ(Track.BezierCurve.Nodes.size(), static_cast<std::size_t>(Track.BezierCurve.NodeCount) + 1);
    EXPECT_EQ(Track.BezierCurve.Nodes.back().Position.X, 0);
    ExpectSamplesToComeBack({"harbor-comet.nltrack", "switchback-spur.nltrack", "timber-fox.nltrack"});
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

    // Terrain of no size is terrain all the same, and the smallest segments need no more than they have.
    odd.Terrain.HasTerrain = true;
    odd.SegmentList = {{}, true, 200, std::vector<TrackSegment>(200, {.SegmentType = 7})};
    EXPECT_TRUE(Load(FileOf(odd)));
    EXPECT_TRUE(Track.Terrain.HasTerrain);
    Track.Terrain.GridSizeX = 2;
    Track.Terrain.Heights = {0, 10, 1, 11};
    EXPECT_EQ(Track.Terrain.HeightAt(1, 0), 10);
    EXPECT_TRUE(Load(empty));
    EXPECT_FALSE(Track.Terrain.HasTerrain);
}

TEST_F(TrackFile, FailedLoadLeavesAnEmptyTrack) {
    ExpectNamesToBeHeeded(Random<TrackDocument>(1));
    const Bytes good = FileOf(TrackDocument{});
    for (const Bytes& broken : {Bytes{}, Bytes(700), Bytes(good.begin(), good.begin() + 300)}) {
        Track = Random<TrackDocument>(1);
        EXPECT_FALSE(Load(broken));
        ExpectSame(FileOf(Track), good);
    }
    Track.WoodCatwalks = {{}, 2, {{{}, 0x7FFFFFFF}, {{}, 0x7FFFFFFF}}}; // beyond what a long can count
    EXPECT_FALSE(SaveTrackFile(folder.Inside("large")));
}

} // namespace railwright::testing
