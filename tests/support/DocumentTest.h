#pragma once

#include "element/ElementDocument.h"
#include "platform/WholeFile.h"
#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"
#include "track/TrackDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <numeric>
#include <optional>
#include <utility>

namespace railwright::testing {

/// Differences between a file and the form that this program writes.
struct Form {
    int Noise = 0x00; // fills every byte that is skipped, and the first byte of a colour
    int True = 0xFF;  // byte of a flag that is set
    Bytes Version = {1, 3, 0, 0};
    int Case = 0;            // added to every letter of a tag
    bool Reversed = false;   // every chunk's sub-chunks are in reverse order
    int SizeError = 0;       // added to every ChunkSize and to the size of every parameter block
    int UnknownShortBy = -1; // missing from the size of an unknown chunk before each other; -1 for none
};

/// Bytes without meaning.
struct Gap {
    std::size_t Size;
};
/// A value that is small in a random document.
struct Small {
    std::int32_t& Number;
    int Lowest, Highest;
};

/// Visits the values of a document in file order, without code of the program, and builds the file's bytes.
/// With a seed, it first assigns a random content to each value.
class Walk {
public:
    explicit Walk(Form form) : Departs(std::move(form)) {}
    explicit Walk(unsigned seed) : random(seed) {}
    const Form Departs;

    void operator()(auto&&... fields) { (Visit(fields), ...); }
    void Fit(auto& items, std::size_t size) { items.resize(random ? size : items.size()); }
    /// A count, the values between it and the list, and that many items.
    void List(std::int32_t& count, auto& items, auto&& each, auto&&... between) {
        (*this)(Small{count, 0, 12}, between...);
        Fit(items, static_cast<std::size_t>(count) + Next() % 3);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            each(items.at(i));
    }
    void Tag(const std::string& letters) {
        for (const char letter : letters)
            Byte(letter + Departs.Case);
    }
    void Size(std::size_t size) { Put(static_cast<int>(size) + Departs.SizeError); }
    /// @return a chunk with its frame and sub-chunks. Its last own fields are `fields`.
    Bytes Chunk(const std::string& tag, std::vector<Bytes> below, auto&&... fields) {
        (*this)(fields...);
        const bool unknown = Departs.UnknownShortBy >= 0;
        if (Departs.Reversed)
            std::reverse(below.begin(), below.end());
        Put(static_cast<std::int64_t>(below.size()) * (unknown ? 2 : 1));
        for (const Bytes& chunk : below) {
            if (unknown) {
                Tag("WXYZ");
                Put(21 - Departs.UnknownShortBy);
                Append(Bytes(21, 0xA5));
            }
            Append(chunk);
        }
        const Bytes inside = Taken();
        Tag(tag);
        Size(inside.size());
        Append(inside);
        return Taken();
    }
    /// A chunk that contains only a list, with items of `size` bytes; 0 if the size varies.
    Bytes ListChunk(const char* tag, std::size_t size, std::int32_t& count, auto& items, auto&& each,
                    std::vector<Bytes> below = {}) {
        (*this)(Gap{16});
        List(count, items, each);
        EXPECT_TRUE(size == 0 || bytes.size() == 20 + size * static_cast<std::size_t>(count)) << tag;
        return Chunk(tag, std::move(below), Gap{16});
    }
    void Append(const Bytes& more) { bytes.insert(bytes.end(), more.begin(), more.end()); }
    Bytes Taken() { return std::exchange(bytes, {}); }

private:
    void Visit(auto& value) {
        if constexpr (requires { value.X; })
            (*this)(value.X, value.Y, value.Z);
        else if constexpr (requires { value.fill({}); })
            for (auto& one : value)
                Visit(one);
        else
            Value(value);
    }
    void Value(Small& small) {
        const auto share = static_cast<int>(Next() % static_cast<unsigned>(small.Highest - small.Lowest + 1));
        Put(small.Number = random ? small.Lowest + share : small.Number);
    }
    void Value(Gap& gap) { Append(Bytes(gap.Size, static_cast<unsigned char>(Departs.Noise))); }
    void Value(std::int32_t& value) { Put(value = random ? static_cast<std::int32_t>(Next()) : value); }
    void Value(ColorValue& value) {
        value = random ? Next() & 0xFFFFFF : value;
        Put(static_cast<std::int64_t>(Departs.Noise) * 0x100'0000 + value);
    }
    void Value(std::uint8_t& value) { Byte(value = random ? static_cast<std::uint8_t>(Next()) : value); }
    void Value(Flag& value) { Byte((value = random ? Next() % 2 == 1 : value) ? Departs.True : 0); }
    void Value(float& value) {
        const std::uint32_t bits = Next() % 4 == 0 ? (Next() & 0x803FFFFF) | 0x7F800000 : Next(); // a NaN
        value = random ? std::bit_cast<float>(bits) : value;
        Put(std::bit_cast<std::uint32_t>(value));
    }
    void Value(text& value) {
        if (random) {
            value.resize(Next() % 4 == 0 ? 256 : Next() % 8);
            std::iota(value.begin(), value.end(), static_cast<char>(Next())); // one in 256 has every byte
        }
        Put(static_cast<std::int64_t>(value.size()));
        Append(Bytes(value.begin(), value.end()));
    }
    std::uint32_t Next() { return random ? static_cast<std::uint32_t>((*random)()) : 0; }
    void Byte(int value) { bytes.push_back(static_cast<unsigned char>(value)); }
    void Put(std::int64_t value) {
        for (const std::int64_t place : {0x100'0000, 0x1'0000, 0x100, 1})
            Byte(static_cast<int>((value + 0x1'0000'0000) / place % 256));
    }

    std::optional<std::mt19937> random;
    Bytes bytes;
};

inline void WalkSegment(TrackSegment& r, Walk& v) {
    v(Small{r.SegmentType, -1, 6}, r.CustomColors, r.Color, r.Tunnel, Gap{15});
    constexpr std::size_t blockSizes[] = {0, 126, 36, 28, 50};
    if (r.SegmentType >= 0 && r.SegmentType <= 4)
        v.Size(blockSizes[r.SegmentType]);
    if (r.SegmentType == 1) {
        v(r.StationValue0, r.StationValue1, r.StationValue2, r.StationValue3, r.StationByte0, r.StationByte1);
        v(r.StationFlag1, r.StationByte2, r.StationValue4, Gap{4}, r.StationFlag3, r.StationValue8, Gap{4});
        v(r.StationValue9, r.StationValue10, Gap{4}, r.StationFlag2);
        v(r.StationValue5, r.StationValue6, r.StationValue7, Gap{64});
    } else if (r.SegmentType == 2) {
        v(Gap{3}, r.LiftByte, r.LiftValue0, r.LiftValue1, r.LiftValue2, Gap{4}, r.LiftFlag1, r.LiftFlag2);
        v(Gap{14});
    } else if (r.SegmentType == 3) {
        v(r.TransportValue0, r.TransportValue1, r.TransportValue2, Gap{3}, r.TransportByte);
        v(r.TransportFlag1, r.TransportFlag2, Gap{10});
    } else if (r.SegmentType == 4) {
        v(r.BrakeValue0, r.BrakeValue1, r.BrakeValue2, Gap{4}, r.BrakeValue6, r.BrakeFlag1, r.BrakeFlag3);
        v(r.BrakeValue3, r.BrakeValue4, r.BrakeValue5, r.BrakeFlag4, r.BrakeFlag5, r.BrakeFlag2, Gap{13});
    }
}

inline Bytes WalkDocument(TrackDocument& t, Walk v) {
    const Bytes info = v.Chunk("INFO", {}, Gap{16}, t.TrackInfo.AuthorComments);
    const Bytes bezr = v.ListChunk("BEZR", 60, t.BezierCurve.NodeCount, t.BezierCurve.Nodes, [&](auto& r) {
        v(r.Position, r.ControlIn, r.ControlOut, r.Roll, r.FlagA, r.FlagC, r.FlagB, Gap{17});
    });
    auto& segments = t.SegmentList;
    v.List(
        segments.SegmentCount, segments.Segments, [&](TrackSegment& r) { WalkSegment(r, v); },
        segments.ClosedCircuit, Gap{16});
    const Bytes segm = v.Chunk("SEGM", {}, Gap{16});

    auto fund = v.ListChunk("FUND", 92, t.FundamentalNodes.Count, t.FundamentalNodes.Items, [&](auto& r) {
        v(r.Flag1, r.Value1, r.Flag2, r.Value2, Gap{6}, r.Position, Gap{64});
    });
    auto& preFab = t.PreFabSupports;
    std::size_t part = 0;
    auto rasc = v.ListChunk("RASC", 0, preFab.NodeCount, preFab.Nodes, [&](PreFabNode& node) {
        node.First = part;
        v(Small{node.SupportCount, 0, 3});
        v.Fit(preFab.Supports, part + static_cast<std::size_t>(node.SupportCount));
        for (; part < node.First + static_cast<std::size_t>(node.SupportCount); ++part)
            v(preFab.Supports.at(part).SupportType, preFab.Supports[part].Value, Gap{16});
    });
    auto fren = v.ListChunk("FREN", 28, t.FreeNodes.Count, t.FreeNodes.Items,
                            [&](FreeNode& r) { v(r.Position, Gap{16}); });
    auto tube = v.ListChunk("TUBE", 48, t.SupportBeams.Count, t.SupportBeams.Items, [&](SupportBeam& r) {
        v(r.EndA[0], r.EndA[2], r.EndA[1], Gap{4}, r.EndB[0], r.EndB[2], r.EndB[1], Gap{4});
        v(r.BeamType, r.Value1, r.Value2, Gap{4});
    });
    auto catw = v.ListChunk("CATW", 0, t.WoodCatwalks.Count, t.WoodCatwalks.Items, [&](WoodCatwalk& r) {
        v(r.Value, Small{r.ExtraBytes, 0, 9}, Gap{static_cast<std::size_t>(r.ExtraBytes)});
    });
    const Bytes supp = v.Chunk("SUPP", {fund, rasc, fren, tube, catw}, Gap{32});
    v(t.TrackHeader.TrackType);
    v.List(
        t.TrackHeader.NumTrains, t.TrackHeader.Trains,
        [&](TrainRecord& r) { v(r.Flag, Gap{7}, r.Name, r.Color); }, t.TrackHeader.CarsPerTrain);
    const Bytes trck = v.Chunk("TRCK", {info, bezr, segm, supp}, t.TrackHeader.TrackColor, Gap{16});
    auto scob = v.ListChunk("SCOB", 0, t.SceneryObjects.Count, t.SceneryObjects.Items, [&](auto& r) {
        v(r.Text2, r.FileName, r.VectorA, r.VectorD.X, r.VectorB, r.VectorD.Y, r.VectorC, r.VectorD.Z);
        v(r.VectorE, Gap{20});
    });
    auto scen = v.ListChunk("SCEN", 64, t.Scenery.TreeCount, t.Scenery.Trees,
                            [&](Tree& r) { v(r.Position, r.TreeType, r.Value, Gap{44}); }, {scob});

    TerrainRecord& r = t.Terrain;
    v(Small{r.GridSizeX, 0, 4}, Small{r.GridSizeZ, 0, 4}, r.Value1, r.Value2, r.Text1, r.Value3, r.Text2);
    v(r.Value4, r.Flag1, Gap{4}, r.Text3, r.Value5, r.Byte1, Gap{15});
    v.Fit(r.Heights, static_cast<std::size_t>(r.GridSizeX * r.GridSizeZ));
    for (float& height : r.Heights)
        v(height);
    const Bytes tera = v.Chunk("TERA", {}, Gap{16});
    v(r.HasTerrain); // not in the file
    v.Taken();
    auto& e = t.Environment;
    const Bytes envc = v.Chunk("ENVC", {}, Gap{16}, e.PreferredEnvironment, e.Text2, Gap{16});
    v.Append(v.Departs.Version);
    auto below = r.HasTerrain ? std::vector{trck, scen, tera, envc} : std::vector{trck, scen, envc};
    return v.Chunk("NLIM", below, Gap{16});
}

inline Bytes WalkDocument(ElementDocument& e, Walk v) {
    v.Tag("ELEM");
    v(e.ChunkSize, Gap{64}, Small{e.NodeCount, 0, 5});
    v.Fit(e.Nodes, static_cast<std::size_t>(e.NodeCount) + 1);
    for (std::size_t i = 1; i <= static_cast<std::size_t>(e.NodeCount); ++i) {
        ElementNode& r = e.Nodes.at(i);
        v(e.Nodes[i - 1].ControlOut, r.ControlIn, r.Position, r.Roll, r.FlagA, r.FlagB, Gap{8});
    }
    v(Gap{64}, Gap{4});
    return v.Taken();
}

/// @return a document with every kind of record: known and unknown segments, texts of all bytes, floats of
/// any bits, lists longer than their counts, terrain that is not stored, and contradictory counts.
template <class Document>
Document Random(unsigned seed) {
    Document document;
    WalkDocument(document, Walk(seed));
    return document;
}

/// @return the document's file. Documents with the same file are equal in everything that a file stores.
Bytes FileOf(auto document, const Form& form = {}) {
    return WalkDocument(document, Walk(form));
}

inline void ExpectSame(const Bytes& actual, const Bytes& expected) {
    const auto [at, other] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    EXPECT_TRUE(actual == expected) << actual.size() << " bytes against " << expected.size()
                                    << ", first difference at byte " << at - actual.begin();
}

/// Tests for the files of one kind of document.
template <auto& InHand, FileResult (&LoadFile)(const FilePath&), FileResult (&SaveFile)(const FilePath&)>
class DocumentTest : public ::testing::Test {
protected:
    using Document = std::remove_reference_t<decltype(InHand)>;

    FileResult Load(const Bytes& bytes) {
        WriteBytes(folder.File(name), bytes);
        return LoadFile(folder.Inside(name));
    }
    Bytes Saved(const Document& document) {
        InHand = document;
        const FileResult saved = SaveFile(folder.Inside(name));
        EXPECT_TRUE(saved) << saved.Reason;
        return ReadBytes(folder.File(name));
    }
    /// Saves a document, then loads it from all forms, with up to 6 extra bytes at the end.
    void ExpectToComeBack(const Document& document, std::span<const Form> forms) {
        const Bytes file = FileOf(document);
        ExpectSame(Saved(document), file);
        for (const Form& form : forms) {
            SCOPED_TRACE(&form - forms.data());
            Bytes foreign = FileOf(document, form);
            foreign.resize(foreign.size() + file.size() % 7, 'N');
            const FileResult loaded = Load(foreign);
            ASSERT_TRUE(loaded) << loaded.Reason << " at " << loaded.Byte;
            ExpectSame(FileOf(InHand), file);
            ExpectSame(Saved(InHand), file);
        }
    }
    void ExpectSamplesToComeBack(std::initializer_list<const char*> samples) {
        for (const char* sample : samples) {
            ASSERT_TRUE(LoadFile(FilePath::FromUser(Example(sample)))) << sample;
            ExpectSame(Saved(InHand), ReadBytes(Example(sample)));
        }
    }

    /// A document is only loaded and saved under a name of its kind. A wrong name leaves it unchanged.
    void ExpectNamesToBeHeeded(const Document& document) {
        const std::string end = name.substr(1);
        const std::string mixed = "d.Nl" + end.substr(3);
        InHand = document;
        for (const std::string& given : {std::string("a"), std::string("b.txt"), "c" + end, mixed})
            EXPECT_TRUE(SaveFile(folder.Inside(given)));
        EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a" + end, "b.txt" + end, "c" + end, mixed}));
        EXPECT_FALSE(SaveFile(folder.Inside("missing\\a")));
        EXPECT_FALSE(LoadFile({}));
        EXPECT_FALSE(LoadFile(folder.Inside("gone" + end)));
        std::filesystem::create_directory(folder.File("folder" + end));
        EXPECT_FALSE(LoadFile(folder.Inside("folder" + end)));
        for (const std::string& wrong : {end.substr(1), "a" + end + ".bak", end, ".hidden" + end}) {
            WriteBytes(folder.File(wrong), FileOf(Document{}));
            EXPECT_FALSE(LoadFile(folder.Inside(wrong))) << wrong;
        }
        ExpectSame(FileOf(InHand), FileOf(document));
#ifndef _WIN32 // elsewhere a backslash is an ordinary character
        EXPECT_FALSE(LoadFile(folder.Inside("C" + end)));
        std::filesystem::create_directory(folder.File("C"));
        WriteBytes(folder.File("C/a" + end), {});
        const FilePath letters = FilePath::FromUser(folder.File("C\\a" + end));
        EXPECT_TRUE(SaveFile(letters) && LoadFile(letters));
        ExpectSame(ReadBytes(folder.File("C\\a" + end)), FileOf(document));
        EXPECT_TRUE(ReadBytes(folder.File("C/a" + end)).empty());
#endif
    }

    const std::string name = std::is_same_v<Document, TrackDocument> ? "a.nltrack" : "a.nlelem";
    TemporaryFolder folder;
    FailingFiles noWaiting;
};

} // namespace railwright::testing
