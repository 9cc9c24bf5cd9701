#include "track/mNoLimits_TrackIO_1_3.h"

#include "platform/Paths.h"
#include "tests/support/HandBuiltFile.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/RandomDocuments.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <variant>

namespace railwright {
namespace {

using testing::Byte;
using testing::Bytes;
using testing::ChunkFields;
using testing::Colors;
using testing::FileBuilder;
using testing::Flags;
using testing::Form;
using testing::Kept;
using testing::ListFields;
using testing::Longs;
using testing::MemoryFiles;
using testing::ReadBytes;
using testing::Singles;
using testing::Tag;
using testing::TemporaryFolder;
using testing::TrackFile;
using testing::WriteBytes;
using testing::Zeros;

FileResult LoadBytes(const Bytes& bytes) {
    MemoryFiles files;
    files.Content["a.nltrack"] = bytes;
    return LoadTrackFile("a.nltrack");
}

Bytes Saved(const TrackDocument& track) {
    MemoryFiles files;
    Track = track;
    const FileResult saved = SaveTrackFile("a.nltrack");
    EXPECT_TRUE(saved) << saved.Reason;
    return files.Content["a.nltrack"];
}

void ExpectSame(const Bytes& actual, const Bytes& expected) {
    const auto [at, other] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    EXPECT_TRUE(actual == expected) << actual.size() << " bytes against " << expected.size()
                                    << ", first difference at byte " << at - actual.begin();
}

/// Where a parameter of a segment stands in the block of its kind.
struct Place {
    int Type;
    std::size_t Offset;
    std::variant<float TrackSegment::*, Flag TrackSegment::*, std::uint8_t TrackSegment::*> Field;
};
using S = TrackSegment;
const Place Places[] = {
    {1, 0, &S::StationValue0},   {1, 4, &S::StationValue1},   {1, 8, &S::StationValue2},
    {1, 12, &S::StationValue3},  {1, 16, &S::StationByte0},   {1, 17, &S::StationByte1},
    {1, 18, &S::StationFlag1},   {1, 19, &S::StationByte2},   {1, 20, &S::StationValue4},
    {1, 28, &S::StationFlag3},   {1, 29, &S::StationValue8},  {1, 37, &S::StationValue9},
    {1, 41, &S::StationValue10}, {1, 49, &S::StationFlag2},   {1, 50, &S::StationValue5},
    {1, 54, &S::StationValue6},  {1, 58, &S::StationValue7},  {2, 3, &S::LiftByte},
    {2, 4, &S::LiftValue0},      {2, 8, &S::LiftValue1},      {2, 12, &S::LiftValue2},
    {2, 20, &S::LiftFlag1},      {2, 21, &S::LiftFlag2},      {3, 0, &S::TransportValue0},
    {3, 4, &S::TransportValue1}, {3, 8, &S::TransportValue2}, {3, 15, &S::TransportByte},
    {3, 16, &S::TransportFlag1}, {3, 17, &S::TransportFlag2}, {4, 0, &S::BrakeValue0},
    {4, 4, &S::BrakeValue1},     {4, 8, &S::BrakeValue2},     {4, 16, &S::BrakeValue6},
    {4, 20, &S::BrakeFlag1},     {4, 21, &S::BrakeFlag3},     {4, 22, &S::BrakeValue3},
    {4, 26, &S::BrakeValue4},    {4, 30, &S::BrakeValue5},    {4, 34, &S::BrakeFlag4},
    {4, 35, &S::BrakeFlag5},     {4, 36, &S::BrakeFlag2},
};
constexpr std::size_t BlockSizes[] = {0, 126, 36, 28, 50};

/// Gives a parameter a value, both in memory and in the bytes of its block.
void Put(const Place& place, TrackSegment& segment, Bytes& block, const Form& form) {
    const int number = static_cast<int>(place.Offset) + 1;
    FileBuilder value(form);
    std::visit(
        [&](auto member) {
            using Value = std::remove_reference_t<decltype(segment.*member)>;
            segment.*member = static_cast<Value>(number);
            if constexpr (std::is_same_v<Value, float>)
                value << Singles{static_cast<float>(number)};
            else if constexpr (std::is_same_v<Value, Flag>)
                value << Flags{true};
            else
                value << Byte{number};
        },
        place.Field);
    const Bytes& bytes = value;
    std::copy(bytes.begin(), bytes.end(), block.begin() + static_cast<std::ptrdiff_t>(place.Offset));
}

Bytes SegmentRecord(int type, const Bytes& block, const Form& form) {
    FileBuilder record(form);
    record << Longs{type} << Flags{true} << Colors{0x010203, 0x040506, 0x070809} << Flags{false} << Zeros{15};
    if (type >= 0 && type <= 4)
        record << Longs{static_cast<int>(block.size()) + form.SizeError} << block;
    return record;
}

TrackSegment SegmentOf(int type) {
    return {.SegmentType = type, .Color = {0x010203, 0x040506, 0x070809}, .CustomColors = true};
}

Bytes SegmentFields(int count, bool closed, const Bytes& records, const Form& form) {
    return FileBuilder(form) << Longs{count} << Flags{closed} << Zeros{16} << records << Zeros{16};
}

/// A track with every kind of record, in memory and as the own fields of its chunks.
struct Sample {
    TrackDocument Document;
    ChunkFields Fields;
};

Sample MakeSample(const Form& form = {}) {
    Sample sample;
    TrackDocument& t = sample.Document;
    ChunkFields& f = sample.Fields;
    const auto build = [&form] { return FileBuilder(form); };

    f["NLIM"] = build() << Longs{form.Version} << Zeros{16};

    t.TrackHeader.TrackType = 9;
    t.TrackHeader.NumTrains = 2;
    t.TrackHeader.CarsPerTrain = -5;
    t.TrackHeader.Trains = {{true, {0xFF0001, 2, 3, 4}, "\xC4rger"}, {false, {5, 6, 7, 8}, ""}};
    t.TrackHeader.TrackColor = {0x102030, 0x405060, 0x708090, 0xA0B0C0, 5, 6, 7, 8};
    f["TRCK"] = build() << Longs{9, 2, -5} << Flags{true} << Zeros{7} << text("\xC4rger")
                        << Colors{0xFF0001, 2, 3, 4} << Flags{false} << Zeros{7} << text("")
                        << Colors{5, 6, 7, 8} << Colors{0x102030, 0x405060, 0x708090, 0xA0B0C0, 5, 6, 7, 8}
                        << Zeros{16};

    t.TrackInfo.AuthorComments = "two\r\nlines";
    f["INFO"] = build() << Zeros{16} << text("two\r\nlines");

    // The flags A, B, C are on, off, on and off, on, on; in the file C stands before B.
    t.BezierCurve.NodeCount = 2;
    t.BezierCurve.Nodes = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, 0.5F, true, false, true},
                           {{10, 11, 12}, {13, 14, 15}, {16, 17, 18}, -0.5F, false, true, true}};
    f["BEZR"] = ListFields(2,
                           build() << Singles{1, 2, 3, 4, 5, 6, 7, 8, 9, 0.5F} << Flags{true, true, false}
                                   << Zeros{17} << Singles{10, 11, 12, 13, 14, 15, 16, 17, 18, -0.5F}
                                   << Flags{false, true, true} << Zeros{17},
                           form);

    Bytes records;
    for (const int type : {0, 1, 2, 3, 4, 7, -1}) {
        TrackSegment segment = SegmentOf(type);
        Bytes block(type >= 0 && type <= 4 ? BlockSizes[type] : 0, static_cast<unsigned char>(form.Noise));
        for (const Place& place : Places)
            if (place.Type == type)
                Put(place, segment, block, form);
        t.SegmentList.Segments.push_back(segment);
        const Bytes record = SegmentRecord(type, block, form);
        records.insert(records.end(), record.begin(), record.end());
    }
    t.SegmentList.SegmentCount = 7;
    t.SegmentList.ClosedCircuit = true;
    f["SEGM"] = SegmentFields(7, true, records, form);

    t.FundamentalNodes.Count = 1;
    t.FundamentalNodes.Items = {{{1, 2, 3}, true, 4, false, 5}};
    f["FUND"] = ListFields(1,
                           build() << Flags{true} << Singles{4} << Flags{false} << Singles{5} << Zeros{6}
                                   << Singles{1, 2, 3} << Zeros{64},
                           form);

    t.PreFabSupports.NodeCount = 3;
    t.PreFabSupports.Nodes = {{2, 0}, {0, 0}, {1, 2}};
    t.PreFabSupports.Supports = {{3, 0.25F}, {4, 0.75F}, {7, 1.5F}};
    f["RASC"] = ListFields(3,
                           build() << Longs{2, 3} << Singles{0.25F} << Zeros{16} << Longs{4} << Singles{0.75F}
                                   << Zeros{16} << Longs{0, 1, 7} << Singles{1.5F} << Zeros{16},
                           form);

    t.FreeNodes.Count = 1;
    t.FreeNodes.Items = {{{-1, -2, -3}}};
    f["FREN"] = ListFields(1, build() << Singles{-1, -2, -3} << Zeros{16}, form);

    t.SupportBeams.Count = 1;
    t.SupportBeams.Items = {{{10, 11, 12}, {20, 21, 22}, 5, -6, 7.5F}};
    f["TUBE"] = ListFields(1,
                           build() << Longs{10, 12, 11} << Zeros{4} << Longs{20, 22, 21} << Zeros{4}
                                   << Longs{5, -6} << Singles{7.5F} << Zeros{4},
                           form);

    t.WoodCatwalks.Count = 2;
    t.WoodCatwalks.Items = {{{1, 2, 3, 4, 5, 6}, 3}, {{6, 5, 4, 3, 2, 1}, 0}};
    f["CATW"] =
        ListFields(2, build() << Longs{1, 2, 3, 4, 5, 6, 3} << Zeros{3} << Longs{6, 5, 4, 3, 2, 1, 0}, form);

    t.Scenery.TreeCount = 1;
    t.Scenery.Trees = {{{1, 2, 3}, 4.5F, 2}};
    f["SCEN"] = ListFields(1, build() << Singles{1, 2, 3} << Longs{2} << Singles{4.5F} << Zeros{44}, form);

    t.SceneryObjects.Count = 1;
    t.SceneryObjects.Items = {
        {"gate.3ds", "Text", {1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}, {13, 14, 15}}};
    f["SCOB"] = ListFields(1,
                           build() << text("Text") << text("gate.3ds")
                                   << Singles{1, 2, 3, 10, 4, 5, 6, 11, 7, 8, 9, 12, 13, 14, 15} << Zeros{20},
                           form);

    t.Terrain = {{}, true, 3, 2, 1, 2, "one", 3, "", 4, "three", 5, 0xEE, true, {0, 10, 20, 1, 11, 21}};
    f["TERA"] = build() << Longs{3, 2} << Singles{1, 2} << text("one") << Singles{3} << text("") << Singles{4}
                        << Flags{true} << Zeros{4} << text("three") << Singles{5} << Byte{0xEE} << Zeros{15}
                        << Singles{0, 10, 20, 1, 11, 21} << Zeros{16};

    t.Environment.PreferredEnvironment = "Desert";
    t.Environment.Text2 = "2";
    f["ENVC"] = build() << Zeros{16} << text("Desert") << text("2") << Zeros{16};
    return sample;
}

TEST(TrackFile, EmptyTrackIs665Bytes) {
    const Bytes empty = Saved({});
    ASSERT_EQ(empty.size(), 665U);
    const Bytes opening = FileBuilder()
                          << Tag{"NLIM"} << Longs{0x291, 0x01030000, 0, 0, 0, 0, 3} << Tag{"TRCK"};
    EXPECT_TRUE(std::equal(opening.begin(), opening.end(), empty.begin()));
    ExpectSame(empty, TrackFile({}));
    EXPECT_EQ(Track.FileHeader.ChunkSize, 657);
    EXPECT_EQ(Track.TrackHeader.ChunkSize, 477);
    EXPECT_EQ(Track.SupportHeader.ChunkSize, 276);
    EXPECT_EQ(Track.Scenery.ChunkSize, 88);
}

TEST(TrackFile, EveryRecordHasItsLayout) {
    const Sample sample = MakeSample();
    const Bytes file = TrackFile(sample.Fields);
    ExpectSame(Saved(sample.Document), file);
    ASSERT_TRUE(LoadBytes(file));
    EXPECT_TRUE(Kept(Track) == Kept(sample.Document));
    EXPECT_EQ(Track.Terrain.HeightAt(2, 0), 20);
    EXPECT_EQ(Track.Terrain.HeightAt(0, 1), 1);
    EXPECT_EQ(Track.PreFabSupports.SupportsOf(Track.PreFabSupports.Nodes[2])[0].SupportType, 7);
    // One zeroed element behind those of the file.
    EXPECT_EQ(Track.BezierCurve.Nodes.size(), 3U);
    EXPECT_EQ(Track.SegmentList.Segments.size(), 8U);
    EXPECT_EQ(Track.TrackHeader.Trains.size(), 3U);
    EXPECT_EQ(Track.BezierCurve.Nodes[2].Position.X, 0);
}

TEST(TrackFile, EveryParameterOfASegmentHasItsPlace) {
    for (const Place& place : Places) {
        TrackDocument track;
        track.SegmentList.SegmentCount = 1;
        track.SegmentList.Segments = {SegmentOf(place.Type)};
        Bytes block(BlockSizes[place.Type]);
        Put(place, track.SegmentList.Segments[0], block, {});
        const Bytes fields = SegmentFields(1, false, SegmentRecord(place.Type, block, {}), {});
        SCOPED_TRACE(::testing::Message() << "type " << place.Type << " offset " << place.Offset);
        ExpectSame(Saved(track), TrackFile({{"SEGM", fields}}));
        ASSERT_TRUE(LoadBytes(TrackFile({{"SEGM", fields}})));
        EXPECT_TRUE(Kept(Track) == Kept(track));
    }
    // 41 and the record: 33 and, where the kind has a block, 4 and the block.
    for (const auto& [type, size] : {std::pair(0, 78), {1, 204}, {2, 114}, {3, 106}, {4, 128}, {7, 74}}) {
        ClearTrackDocument();
        Track.SegmentList.SegmentCount = 1;
        Track.SegmentList.Segments = {SegmentOf(type)};
        ComputeChunkSizes();
        EXPECT_EQ(Track.SegmentList.ChunkSize, size) << type;
    }
}

TEST(TrackFile, SamplesComeBackByteForByte) {
    for (const char* name : {"harbor-comet.nltrack", "switchback-spur.nltrack", "timber-fox.nltrack"}) {
        ASSERT_TRUE(LoadTrackFile(PathFromOutside(testing::Example(name)))) << name;
        ExpectSame(Saved(Track), ReadBytes(testing::Example(name)));
    }
}

/// The sizes as the format's closed formulas give them.
void ExpectSizes(const TrackDocument& t) {
    const auto sum = [](std::int32_t count, const auto& items, auto&& sizeOf) {
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            bytes += sizeOf(items[i]);
        return static_cast<int>(bytes);
    };
    const auto length = [](const text& characters) { return static_cast<int>(characters.size()); };
    const auto unsignedOf = [](int value) { return static_cast<std::size_t>(value); };
    const int envc = 44 + length(t.Environment.PreferredEnvironment) + length(t.Environment.Text2);
    const int tera = 81 + length(t.Terrain.Text1) + length(t.Terrain.Text2) + length(t.Terrain.Text3) +
                     4 * t.Terrain.GridSizeX * t.Terrain.GridSizeZ;
    const int scob = 40 + sum(t.SceneryObjects.Count, t.SceneryObjects.Items,
                              [](const auto& o) { return 88 + o.FileName.size() + o.Text2.size(); });
    const int scen = 48 + 64 * t.Scenery.TreeCount + scob;
    const int catw = 40 + sum(t.WoodCatwalks.Count, t.WoodCatwalks.Items,
                              [&](const auto& c) { return 28 + unsignedOf(c.ExtraBytes); });
    const int tube = 40 + 48 * t.SupportBeams.Count;
    const int fren = 40 + 28 * t.FreeNodes.Count;
    const int rasc = 40 + sum(t.PreFabSupports.NodeCount, t.PreFabSupports.Nodes,
                              [&](const auto& n) { return 4 + 24 * unsignedOf(n.SupportCount); });
    const int fund = 40 + 92 * t.FundamentalNodes.Count;
    const int supp = 76 + fund + rasc + fren + tube + catw;
    const int segm =
        41 + sum(t.SegmentList.SegmentCount, t.SegmentList.Segments, [](const auto& s) {
            return s.SegmentType < 0 || s.SegmentType > 4 ? 33U : 37U + BlockSizes[s.SegmentType];
        });
    const int bezr = 40 + 60 * t.BezierCurve.NodeCount;
    const int info = 24 + length(t.TrackInfo.AuthorComments);
    const int trck = 96 +
                     sum(t.TrackHeader.NumTrains, t.TrackHeader.Trains,
                         [](const auto& train) { return 28 + train.Name.size(); }) +
                     info + bezr + segm + supp;
    const int nlim = 48 + trck + scen + envc + (t.Terrain.HasTerrain ? 8 + tera : 0);
    const struct {
        const ChunkRecord& Record;
        int Size;
        int SubChunks;
    } expected[] = {{t.FileHeader, nlim, t.Terrain.HasTerrain ? 4 : 3},
                    {t.TrackHeader, trck, 4},
                    {t.TrackInfo, info, 0},
                    {t.BezierCurve, bezr, 0},
                    {t.SegmentList, segm, 0},
                    {t.SupportHeader, supp, 5},
                    {t.FundamentalNodes, fund, 0},
                    {t.PreFabSupports, rasc, 0},
                    {t.FreeNodes, fren, 0},
                    {t.SupportBeams, tube, 0},
                    {t.WoodCatwalks, catw, 0},
                    {t.Scenery, scen, 1},
                    {t.SceneryObjects, scob, 0},
                    {t.Terrain, t.Terrain.HasTerrain ? tera : 0, 0},
                    {t.Environment, envc, 0}};
    for (const auto& one : expected) {
        EXPECT_EQ(one.Record.ChunkSize, one.Size);
        EXPECT_EQ(one.Record.SubChunks, one.SubChunks);
    }
}

TEST(TrackFile, RandomTracksComeBackWhole) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        const TrackDocument random = testing::RandomTrack(seed);
        const Bytes saved = Saved(random);
        EXPECT_EQ(saved.size(), static_cast<std::size_t>(Track.FileHeader.ChunkSize) + 8);
        ExpectSizes(Track);
        ClearTrackDocument();
        ASSERT_TRUE(LoadBytes(saved));
        EXPECT_TRUE(Kept(Track) == Kept(random));
        ExpectSame(Saved(Track), saved);
    }
}

TEST(TrackFile, ForeignFormsLoadToTheSameTrack) {
    const Sample sample = MakeSample();
    const struct {
        const char* Name;
        Form Foreign;
    } cases[] = {
        {"noise", {.Noise = 0xA5}},
        {"flags", {.True = 0x01}},
        {"version", {.Version = 0x09090909}},
        {"lower case", {.LowerCaseTags = true}},
        {"other order", {.Reversed = true}},
        {"sizes too large", {.SizeError = 1'000'000}},
        {"sizes negative", {.SizeError = -1'000'000}},
        {"unknown chunks", {.UnknownChunksShortBy = 0}},
        {"unknown chunks, short size", {.UnknownChunksShortBy = 4}},
        {"trailing bytes", {.Trailing = 99}},
        {"all at once", {0x5A, 0x80, 0x00FF7F03, true, true, -1, 4, 5}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Name);
        const Bytes file = TrackFile(MakeSample(one.Foreign).Fields, one.Foreign);
        const FileResult loaded = LoadBytes(file);
        ASSERT_TRUE(loaded) << loaded.Reason << " at " << loaded.Byte;
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(Track.FileHeader.Version[i], (one.Foreign.Version >> (24 - 8 * i)) & 0xFF);
        EXPECT_TRUE(Kept(Track) == Kept(sample.Document));
        ExpectSame(Saved(Track), TrackFile(sample.Fields));
    }
}

TEST(TrackFile, BelievesTheNumberOfSubChunksAndNothingElse) {
    Bytes file = TrackFile(MakeSample().Fields);
    file[31] = 0; // the root's
    EXPECT_TRUE(LoadBytes(file));
    EXPECT_TRUE(Kept(Track) == Kept(TrackDocument{}));

    // A chunk that comes twice: the later one counts.
    file =
        TrackFile({{"ENVC", FileBuilder() << Zeros{16} << text("first") << text("and more") << Zeros{16}}});
    file[31] = 4;
    const Bytes later = FileBuilder() << Tag{"ENVC"} << Longs{0} << Zeros{16} << text("later") << text("")
                                      << Zeros{16} << Longs{0};
    file.insert(file.end(), later.begin(), later.end());
    EXPECT_TRUE(LoadBytes(file));
    EXPECT_EQ(Track.Environment.PreferredEnvironment, "later");
    EXPECT_EQ(Track.Environment.Text2, "");

    // Terrain of no size is terrain all the same: 81 bytes without the number of sub-chunks.
    file = TrackFile({{"TERA", Bytes(77)}});
    EXPECT_TRUE(LoadBytes(file));
    EXPECT_TRUE(Track.Terrain.HasTerrain);
    EXPECT_TRUE(LoadBytes(TrackFile({})));
    EXPECT_FALSE(Track.Terrain.HasTerrain);
}

TEST(TrackFile, TheByteBehindTheFileReadsAsZero) {
    Bytes file = TrackFile(MakeSample().Fields);
    file.pop_back();
    ASSERT_TRUE(LoadBytes(file));
    EXPECT_TRUE(Kept(Track) == Kept(MakeSample().Document));
    file.pop_back();
    EXPECT_FALSE(LoadBytes(file));
}

TEST(TrackFile, FailedLoadLeavesTheTrackOrAnEmptyOne) {
    const TemporaryFolder folder;
    const Bytes good = TrackFile({});
    const std::string before = Kept(MakeSample().Document);
    for (const char* name : {"a.txt", "nltrack", "a.nltrack.bak", ".nltrack", ".hidden.nltrack"}) {
        WriteBytes(folder.File(name), good);
        Track = MakeSample().Document;
        EXPECT_FALSE(LoadTrackFile(folder.Inside(name))) << name;
        EXPECT_TRUE(Kept(Track) == before) << name;
    }
    std::filesystem::create_directory(folder.File("folder.nltrack"));
    for (const std::string& name :
         {std::string(), folder.Inside("gone.nltrack"), folder.Inside("folder.nltrack")}) {
        EXPECT_FALSE(LoadTrackFile(name)) << name;
        EXPECT_TRUE(Kept(Track) == before) << name;
    }
    for (const Bytes& broken : {Bytes{}, Bytes(700), Bytes(good.begin(), good.begin() + 300)}) {
        Track = MakeSample().Document;
        EXPECT_FALSE(LoadBytes(broken));
        EXPECT_TRUE(Kept(Track) == Kept(TrackDocument{}));
    }
}

TEST(TrackFile, SavesUnderANameWithTheExtension) {
    const TemporaryFolder folder;
    ClearTrackDocument();
    for (const char* name : {"a", "b.txt", "c.nltrack", "d.NLTRACK", "e.NlTrack"})
        EXPECT_TRUE(SaveTrackFile(folder.Inside(name)));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.nltrack", "b.txt.nltrack", "c.nltrack",
                                                        "d.NLTRACK", "e.NlTrack"}));
    EXPECT_TRUE(LoadTrackFile(folder.Inside("d.NLTRACK")));
    EXPECT_FALSE(SaveTrackFile(folder.Inside("missing\\a.nltrack")));
}

TEST(TrackFile, StoresWhatTheDocumentSaysAtThatMoment) {
    Sample sample = MakeSample();
    sample.Document.Terrain.HasTerrain = false; // its fields stay
    sample.Document.TrackHeader.NumTrains = 0;  // and so do the trains
    sample.Fields.erase("TERA");
    sample.Fields["TRCK"] = FileBuilder()
                            << Longs{9, 0, -5} << Colors{0x102030, 0x405060, 0x708090, 0xA0B0C0, 5, 6, 7, 8}
                            << Zeros{16};
    ExpectSame(Saved(sample.Document), TrackFile(sample.Fields));

    const TemporaryFolder folder;
    Track.WoodCatwalks.Items[0].ExtraBytes = Track.WoodCatwalks.Items[1].ExtraBytes = 0x7FFFFFFF;
    EXPECT_FALSE(SaveTrackFile(folder.Inside("beyond-what-a-long-can-count")));
    EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

} // namespace
} // namespace railwright
