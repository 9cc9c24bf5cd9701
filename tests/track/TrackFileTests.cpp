#include "track/mNoLimits_TrackIO_1_3.h"

#include "tests/support/DocumentTest.h"

namespace railwright::testing {

using TrackFile = DocumentTest<Track, LoadTrackFile, SaveTrackFile>;

TEST_F(TrackFile, EmptyTrackIs665Bytes) {
    Bytes bytes(665);
    const struct {
        std::size_t At;
        const char* Tag;
        int Size;
    } chunks[] = {{0, "NLIM", 657},  {32, "TRCK", 477},  {104, "INFO", 24}, {136, "BEZR", 40},
                  {184, "SEGM", 41}, {233, "SUPP", 276}, {277, "FUND", 40}, {325, "RASC", 40},
                  {373, "FREN", 40}, {421, "TUBE", 40},  {469, "CATW", 40}, {517, "SCEN", 88},
                  {565, "SCOB", 40}, {613, "ENVC", 44}};
    for (const auto& chunk : chunks) {
        std::copy_n(chunk.Tag, 4, &bytes[chunk.At]);
        bytes[chunk.At + 6] = static_cast<unsigned char>(chunk.Size / 256);
        bytes[chunk.At + 7] = static_cast<unsigned char>(chunk.Size % 256);
    }
    bytes[8] = 1; // version 1.3
    bytes[9] = bytes[31] = 3;
    bytes[103] = 4; // chunks in TRCK, in SUPP and in SCEN; before in the root
    bytes[276] = 5;
    bytes[564] = 1;
    ExpectSame(Saved({}), bytes);
    EXPECT_EQ(Track.SupportHeader.ChunkSize, 276);
}

TEST_F(TrackFile, RandomTracksComeBackWholeFromAnyForm) {
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
    EXPECT_EQ(Track.FileHeader.Version, std::end(forms)[-1].Version);
    // One zeroed element stands behind those of the file.
    EXPECT_EQ(Track.TrackHeader.Trains.size(), static_cast<std::size_t>(Track.TrackHeader.NumTrains) + 1);
    EXPECT_EQ(Track.BezierCurve.Nodes.size(), static_cast<std::size_t>(Track.BezierCurve.NodeCount) + 1);
    EXPECT_EQ(Track.BezierCurve.Nodes.back().Position.X, 0);
}

TEST_F(TrackFile, SamplesComeBackByteForByte) {
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
    EXPECT_EQ((TerrainRecord{.GridSizeX = 2, .Heights = {0, 10, 1, 11}}.HeightAt(1, 0)), 10);
    EXPECT_TRUE(Load(empty));
    EXPECT_FALSE(Track.Terrain.HasTerrain);
}

TEST_F(TrackFile, FailedLoadLeavesTheTrackOrAnEmptyOne) {
    const Bytes good = FileOf(TrackDocument{});
    const auto before = Random<TrackDocument>(1);
    Track = before;
    std::filesystem::create_directory(folder.File("folder.nltrack"));
    for (const char* wrong : {"a.txt", "nltrack", "a.nltrack.bak", ".nltrack", ".hidden.nltrack"})
        WriteBytes(folder.File(wrong), good);
    for (const std::string& wrong : folder.Names())
        EXPECT_FALSE(LoadTrackFile(folder.Inside(wrong))) << wrong;
    EXPECT_FALSE(LoadTrackFile(""));
    EXPECT_FALSE(LoadTrackFile(folder.Inside("gone.nltrack")));
    ExpectSame(FileOf(Track), FileOf(before));
    for (const Bytes& broken : {Bytes{}, Bytes(700), Bytes(good.begin(), good.begin() + 300)}) {
        Track = before;
        EXPECT_FALSE(Load(broken));
        ExpectSame(FileOf(Track), good);
    }
}

TEST_F(TrackFile, SavesUnderANameWithTheExtension) {
    ClearTrackDocument();
    for (const char* given : {"a", "b.txt", "c.nltrack", "d.NLTRACK"})
        EXPECT_TRUE(SaveTrackFile(folder.Inside(given)));
    EXPECT_TRUE(LoadTrackFile(folder.Inside("d.NLTRACK")));
    EXPECT_FALSE(SaveTrackFile(folder.Inside("missing\\a.nltrack")));
    Track.WoodCatwalks = {{}, 2, {{{}, 0x7FFFFFFF}, {{}, 0x7FFFFFFF}}}; // beyond what a long can count
    EXPECT_FALSE(SaveTrackFile(folder.Inside("e")));
    EXPECT_EQ(folder.Names(),
              (std::vector<std::string>{"a.nltrack", "b.txt.nltrack", "c.nltrack", "d.NLTRACK"}));
}

} // namespace railwright::testing
