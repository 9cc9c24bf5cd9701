#include "element/mNoLimits_ElementIO_1_3.h"

#include "platform/Paths.h"
#include "tests/support/HandBuiltFile.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/RandomDocuments.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

using testing::Bytes;
using testing::FileBuilder;
using testing::Flags;
using testing::Form;
using testing::Kept;
using testing::Longs;
using testing::MemoryFiles;
using testing::ReadBytes;
using testing::Singles;
using testing::Tag;
using testing::TemporaryFolder;
using testing::WriteBytes;
using testing::Zeros;

FileResult LoadBytes(const Bytes& bytes) {
    MemoryFiles files;
    files.Content["a.nlelem"] = bytes;
    return LoadElementFile("a.nlelem");
}

Bytes Saved(const ElementDocument& element) {
    MemoryFiles files;
    Element = element;
    EXPECT_TRUE(SaveElementFile("a.nlelem"));
    return files.Content["a.nlelem"];
}

/// The file of SampleElement up to the end of its last record.
FileBuilder SampleRecords(const Form& form) {
    return FileBuilder(form) << Tag{"ELEM"} << Longs{236 + form.SizeError} << Zeros{64} << Longs{2}
                             << Singles{1, 2, 3, 4, 5, 6, 7, 8, 9, 0.5F} << Flags{true, false} << Zeros{8}
                             << Singles{11, 12, 13, 14, 15, 16, 17, 18, 19, -0.5F} << Flags{false, true}
                             << Zeros{8};
}

Bytes SampleFile(const Form& form = {}) {
    return SampleRecords(form) << Zeros{64} << Zeros{4};
}

ElementDocument SampleElement() {
    ElementDocument element;
    element.ChunkSize = 236; // 136 and twice 50
    element.NodeCount = 2;
    element.Nodes = {{{}, {1, 2, 3}, {}, 0, false, false},
                     {{7, 8, 9}, {11, 12, 13}, {4, 5, 6}, 0.5F, true, false},
                     {{17, 18, 19}, {}, {14, 15, 16}, -0.5F, false, true}};
    return element;
}

TEST(ElementFile, HasItsLayout) {
    const Bytes file = SampleFile();
    EXPECT_EQ(file.size(), 244U);
    EXPECT_EQ(Saved(SampleElement()), file);
    ASSERT_TRUE(LoadBytes(file));
    EXPECT_TRUE(Kept(Element) == Kept(SampleElement()));
    EXPECT_EQ(Element.Nodes.size(), 3U);
    EXPECT_EQ(Element.Nodes[0].Position.X, 0);
    EXPECT_EQ(Element.Nodes[2].ControlOut.X, 0);

    const Bytes none = FileBuilder() << Tag{"ELEM"} << Longs{136} << Zeros{64} << Longs{0} << Zeros{64}
                                     << Longs{0};
    EXPECT_EQ(none.size(), 144U);
    ASSERT_TRUE(LoadBytes(none));
    EXPECT_EQ(Element.Nodes.size(), 1U);
    EXPECT_EQ(Saved(Element), none);
}

TEST(ElementFile, StoresNothingThatAFileHasNoPlaceFor) {
    ElementDocument element = SampleElement();
    element.SubChunks = 9;
    element.Nodes[0] = {{5, 5, 5}, element.Nodes[0].ControlOut, {5, 5, 5}, 5, true, true};
    element.Nodes[2].ControlOut = {5, 5, 5};
    EXPECT_EQ(Saved(element), SampleFile());
}

TEST(ElementFile, SamplesAndRandomElementsComeBackByteForByte) {
    for (const char* name : {"banked-turn.nlelem", "loop.nlelem"}) {
        ASSERT_TRUE(LoadElementFile(PathFromOutside(testing::Example(name)))) << name;
        EXPECT_EQ(Saved(Element), ReadBytes(testing::Example(name))) << name;
    }
    for (unsigned seed = 0; seed < 50; ++seed) {
        const ElementDocument random = testing::RandomElement(seed);
        const Bytes saved = Saved(random);
        EXPECT_EQ(saved.size(), static_cast<std::size_t>(144 + 50 * random.NodeCount));
        ASSERT_TRUE(LoadBytes(saved));
        EXPECT_TRUE(Kept(Element) == Kept(random)) << seed;
        EXPECT_EQ(Saved(Element), saved) << seed;
    }
}

TEST(ElementFile, ForeignFormsLoadToTheSameElement) {
    for (const Form& foreign : {Form{.Noise = 0xA5}, Form{.True = 0x01}, Form{.LowerCaseTags = true}}) {
        ASSERT_TRUE(LoadBytes(SampleFile(foreign)));
        EXPECT_EQ(Element.SubChunks, 0);
        EXPECT_EQ(Saved(Element), SampleFile());
    }
    ASSERT_TRUE(LoadBytes(FileBuilder() << SampleFile() << Zeros{9}));
    EXPECT_EQ(Saved(Element), SampleFile());
    // A ChunkSize that does not fit is kept.
    const Bytes wrong = SampleFile({.SizeError = -1000});
    ASSERT_TRUE(LoadBytes(wrong));
    EXPECT_EQ(Saved(Element), wrong);
}

TEST(ElementFile, EndsBehindItsLastRecord) {
    const Bytes records = SampleRecords({});
    ASSERT_EQ(records.size(), 176U);
    for (std::size_t length = 0; length <= 176; ++length) {
        Element = SampleElement();
        const bool loaded{LoadBytes(Bytes(records.begin(), records.begin() + static_cast<int>(length)))};
        // The byte behind the file reads as zero: the last of the records, or that of a count of no spans.
        EXPECT_EQ(loaded, length == 75 || length >= 175) << length;
        EXPECT_EQ(Element.NodeCount, length >= 175 ? 2 : 0) << length;
    }
}

TEST(ElementFile, NamesAreTreatedLikeThoseOfTracks) {
    const TemporaryFolder folder;
    Element = SampleElement();
    for (const char* name : {"a", "b.nltrack", "c.NLELEM"})
        EXPECT_TRUE(SaveElementFile(folder.Inside(name)));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.nlelem", "b.nltrack.nlelem", "c.NLELEM"}));
    ClearElementDocument();
    EXPECT_TRUE(LoadElementFile(folder.Inside("c.NlElem"))); // found in any case
    WriteBytes(folder.File("d.txt"), SampleFile());
    for (const std::string& name : {std::string(), folder.Inside("d.txt"), folder.Inside("e.nlelem")})
        EXPECT_FALSE(LoadElementFile(name)) << name;
    EXPECT_TRUE(Kept(Element) == Kept(SampleElement()));
}

} // namespace
} // namespace railwright
