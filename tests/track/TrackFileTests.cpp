#include "track/mNoLimits_TrackIO_1_3.h"

#include "tests/support/DocumentBytes.h"
#include "tests/support/FailingFiles.h"

namespace railwright {
namespace {

using namespace testing;

class TrackFile : public ::testing::Test {
protected:
    FileResult Load(const Bytes& bytes) {
        WriteBytes(folder.File("a.nltrack"), bytes);
        return LoadTrackFile(folder.Inside("a.nltrack"));
    }
    Bytes Saved(const TrackDocument& track) {
        Track = track;
        const FileResult saved = SaveTrackFile(folder.Inside("a.nltrack"));
        EXPECT_TRUE(saved) << saved.Reason;
        return ReadBytes(folder.File("a.nltrack"));
    }
    TemporaryFolder folder;
    FailingFiles noWaiting;
};

TEST_F(TrackFile, EmptyTrackIs665Bytes) {
    Bytes bytes(665);
    bytes[8] = 1; // version 1.3
    bytes[9] = 3;
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
    bytes[31] = 3; // chunks in the root, in TRCK, in SUPP and in SCEN
    bytes[103] = 4;
    bytes[276] = 5;
    bytes[564] = 1;
    ExpectSame(Saved({}), bytes);
    ExpectSame(FileOf(TrackDocument{}), bytes);
}

/// The sizes as the format's closed formulas give them.
void ExpectSizes(const TrackDocument& t) {
    const auto sum = [](std::int32_t count, const auto& items, auto&& sizeOf) {
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            bytes += static_cast<std::size_t>(sizeOf(items[i]));
        return static_cast<int>(bytes);
    };
    const auto length = [](const auto&... texts) { return static_cast<int>((texts.size() + ...)); };
    const auto& terrain = t.Terrain;
    const int envc = 44 + length(t.Environment.PreferredEnvironment, t.Environment.Text2);
    const int tera =
        81 + length(terrain.Text1, terrain.Text2, terrain.Text3) + 4 * terrain.GridSizeX * terrain.GridSizeZ;
    const int scob = 40 + sum(t.SceneryObjects.Count, t.SceneryObjects.Items,
                              [&](const auto& r) { return 88 + length(r.FileName, r.Text2); });
    const int scen = 48 + 64 * t.Scenery.TreeCount + scob;
    const int catw =
        40 + sum(t.WoodCatwalks.Count, t.WoodCatwalks.Items, [](const auto& r) { return 28 + r.ExtraBytes; });
    const int tube = 40 + 48 * t.SupportBeams.Count;
    const int fren = 40 + 28 * t.FreeNodes.Count;
    const int rasc = 40 + sum(t.PreFabSupports.NodeCount, t.PreFabSupports.Nodes,
                              [](const auto& r) { return 4 + 24 * r.SupportCount; });
    const int fund = 40 + 92 * t.FundamentalNodes.Count;
    const int supp = 76 + fund + rasc + fren + tube + catw;
    const int segm = 41 + sum(t.SegmentList.SegmentCount, t.SegmentList.Segments, [](const auto& r) {
                         return r.SegmentType < 0 || r.SegmentType > 4 ? 33 : 37 + BlockSizes[r.SegmentType];
                     });
    const int bezr = 40 + 60 * t.BezierCurve.NodeCount;
    const int info = 24 + length(t.TrackInfo.AuthorComments);
    const int trains = sum(t.TrackHeader.NumTrains, t.TrackHeader.Trains,
                           [&](const auto& r) { return 28 + length(r.Name); });
    const int trck = 96 + trains + info + bezr + segm + supp;
    const int nlim = 48 + trck + scen + envc + (terrain.HasTerrain ? 8 + tera : 0);
    const struct {
        const ChunkRecord& Record;
        int Size;
    } expected[] = {{t.FileHeader, nlim},       {t.TrackHeader, trck},
                    {t.TrackInfo, info},        {t.BezierCurve, bezr},
                    {t.SegmentList, segm},      {t.SupportHeader, supp},
                    {t.FundamentalNodes, fund}, {t.PreFabSupports, rasc},
                    {t.FreeNodes, fren},        {t.SupportBeams, tube},
                    {t.WoodCatwalks, catw},     {t.Scenery, scen},
                    {t.SceneryObjects, scob},   {terrain, terrain.HasTerrain ? tera : 0},
                    {t.Environment, envc}};
    for (const auto& one : expected)
        EXPECT_EQ(one.Record.ChunkSize, one.Size) << &one - expected;
    EXPECT_EQ(t.FileHeader.SubChunks, terrain.HasTerrain ? 4 : 3);
}

TEST_F(TrackFile, RandomTracksComeBackWhole) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        const TrackDocument random = RandomTrack(seed);
        const Bytes file = FileOf(random);
        ExpectSame(Saved(random), file);
        EXPECT_EQ(file.size(), static_cast<std::size_t>(Track.FileHeader.ChunkSize) + 8);
        ExpectSizes(Track);
        ClearTrackDocument();
        ASSERT_TRUE(LoadTrackFile(folder.Inside("a.nltrack")));
        ExpectSame(FileOf(Track), file);
        const auto expectOneZeroedBehind = [](int count, const auto& items) {
            EXPECT_EQ(items.size(), static_cast<std::size_t>(count) + 1);
        };
        expectOneZeroedBehind(Track.TrackHeader.NumTrains, Track.TrackHeader.Trains);
        expectOneZeroedBehind(Track.BezierCurve.NodeCount, Track.BezierCurve.Nodes);
        expectOneZeroedBehind(Track.SegmentList.SegmentCount, Track.SegmentList.Segments);
        EXPECT_EQ(Track.BezierCurve.Nodes.back().Position.X, 0);
        ExpectSame(Saved(Track), file);
    }
}

TEST_F(TrackFile, SamplesComeBackByteForByte) {
    for (const char* name : {"harbor-comet.nltrack", "switchback-spur.nltrack", "timber-fox.nltrack"}) {
        ASSERT_TRUE(LoadTrackFile(PathFromOutside(Example(name)))) << name;
        ExpectSame(Saved(Track), ReadBytes(Example(name)));
    }
}

TEST_F(TrackFile, ForeignFormsLoadToTheSameTrack) {
    const Form forms[] = {{.Noise = 0xA5},           {.True = 0x01},
                          {.Version = {9, 9, 9, 9}}, {.Case = 0x20},
                          {.Reversed = true},        {.SizeError = 1'000'000},
                          {.SizeError = -1'000'000}, {.UnknownShortBy = 0},
                          {.UnknownShortBy = 4},     {0x5A, 0x80, {0, 0xFF, 0x7F, 3}, 0x20, true, -1, 4}};
    for (unsigned seed = 0; seed < 5; ++seed)
        for (const Form& form : forms) {
            SCOPED_TRACE(&form - forms);
            Bytes file = FileOf(RandomTrack(seed), form);
            file.resize(file.size() + seed, 'N'); // what stands behind the last chunk does not matter
            const FileResult loaded = Load(file);
            ASSERT_TRUE(loaded) << loaded.Reason << " at " << loaded.Byte;
            EXPECT_EQ(Track.FileHeader.Version, form.Version);
            ExpectSame(FileOf(Track), FileOf(RandomTrack(seed)));
        }
}

TEST_F(TrackFile, BelievesTheNumberOfSubChunksAndNothingElse) {
    const Bytes empty = FileOf(TrackDocument{});
    Bytes file = FileOf(RandomTrack(1));
    file[31] = 0; // the root's
    EXPECT_TRUE(Load(file));
    ExpectSame(FileOf(Track), empty);

    // A chunk that comes twice: the later one counts.
    TrackDocument two;
    two.Environment = {{}, "first", "and more"};
    file = FileOf(two);
    file[31] = 4;
    file.insert(file.end(), empty.begin() + 613, empty.end());
    EXPECT_TRUE(Load(file));
    ExpectSame(FileOf(Track), empty);

    // Terrain of no size is terrain all the same, and the smallest segments need no more than they have.
    two.Terrain.HasTerrain = true;
    two.SegmentList.SegmentCount = 200;
    two.SegmentList.Segments.assign(200, {.SegmentType = 7});
    EXPECT_TRUE(Load(FileOf(two)));
    EXPECT_TRUE(Track.Terrain.HasTerrain);
    EXPECT_TRUE(Load(empty));
    EXPECT_FALSE(Track.Terrain.HasTerrain);
}

TEST_F(TrackFile, ListsInListsAreFound) {
    Track = {};
    Track.Terrain = {{}, true, 3, 2, 0, 0, "", 0, "", 0, "", 0, 0, false, {0, 10, 20, 1, 11, 21}};
    EXPECT_EQ(Track.Terrain.HeightAt(2, 0), 20);
    EXPECT_EQ(Track.Terrain.HeightAt(0, 1), 1);
    Track.PreFabSupports = {{}, 2, {{2, 0}, {1, 2}}, {{3, 0}, {4, 0}, {7, 0}}};
    EXPECT_EQ(Track.PreFabSupports.SupportsOf({1, 2})[0].SupportType, 7);
}

TEST_F(TrackFile, FailedLoadLeavesTheTrackOrAnEmptyOne) {
    const Bytes good = FileOf(TrackDocument{});
    const Bytes before = FileOf(RandomTrack(1));
    Track = RandomTrack(1);
    std::filesystem::create_directory(folder.File("folder.nltrack"));
    for (const char* name : {"a.txt", "nltrack", "a.nltrack.bak", ".nltrack", ".hidden.nltrack"})
        WriteBytes(folder.File(name), good);
    for (const std::string& name : folder.Names())
        EXPECT_FALSE(LoadTrackFile(folder.Inside(name))) << name;
    EXPECT_FALSE(LoadTrackFile(""));
    EXPECT_FALSE(LoadTrackFile(folder.Inside("gone.nltrack")));
    ExpectSame(FileOf(Track), before);
    for (const Bytes& broken : {Bytes{}, Bytes(700), Bytes(good.begin(), good.begin() + 300)}) {
        Track = RandomTrack(1);
        EXPECT_FALSE(Load(broken));
        ExpectSame(FileOf(Track), good);
    }
}

TEST_F(TrackFile, SavesUnderANameWithTheExtension) {
    ClearTrackDocument();
    for (const char* name : {"a", "b.txt", "c.nltrack", "d.NLTRACK", "e.NlTrack"})
        EXPECT_TRUE(SaveTrackFile(folder.Inside(name)));
    EXPECT_TRUE(LoadTrackFile(folder.Inside("d.NLTRACK")));
    EXPECT_FALSE(SaveTrackFile(folder.Inside("missing\\a.nltrack")));
    Track.WoodCatwalks.Count = 2;
    Track.WoodCatwalks.Items.assign(2, {{}, 0x7FFFFFFF});
    EXPECT_FALSE(SaveTrackFile(folder.Inside("beyond-what-a-long-can-count")));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.nltrack", "b.txt.nltrack", "c.nltrack",
                                                        "d.NLTRACK", "e.NlTrack"}));
}

} // namespace
} // namespace railwright
