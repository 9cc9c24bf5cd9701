#include "element/mNoLimits_ElementIO_1_3.h"

#include "tests/support/DocumentBytes.h"
#include "tests/support/FailingFiles.h"

namespace railwright {
namespace {

using namespace testing;

class ElementFile : public ::testing::Test {
protected:
    FileResult Load(const Bytes& bytes) {
        WriteBytes(folder.File("a.nlelem"), bytes);
        return LoadElementFile(folder.Inside("a.nlelem"));
    }
    Bytes Saved(const ElementDocument& element) {
        Element = element;
        EXPECT_TRUE(SaveElementFile(folder.Inside("a.nlelem")));
        return ReadBytes(folder.File("a.nlelem"));
    }
    TemporaryFolder folder;
    FailingFiles noWaiting;
};

TEST_F(ElementFile, RandomElementsComeBackWholeFromAnyForm) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        SCOPED_TRACE(seed);
        ElementDocument random = RandomElement(seed);
        const Bytes file = FileOf(random);
        EXPECT_EQ(file.size(), static_cast<std::size_t>(144 + 50 * random.NodeCount));
        random.SubChunks = 9; // none of this has a place in the file
        random.Nodes[0] = {{5, 5, 5}, random.Nodes[0].ControlOut, {5, 5, 5}, 5, true, true};
        if (random.NodeCount > 0)
            random.Nodes.back().ControlOut = {5, 5, 5};
        ExpectSame(Saved(random), file);
        for (const Form& form : {Form{}, Form{.Noise = 0xA5}, Form{.True = 0x01}, Form{.Case = 0x20}}) {
            Bytes foreign = FileOf(random, form);
            foreign.resize(foreign.size() + seed);
            ASSERT_TRUE(Load(foreign));
            ExpectSame(FileOf(Element), file);
            EXPECT_EQ(Element.SubChunks, 0);
            EXPECT_EQ(Element.Nodes.size(), static_cast<std::size_t>(Element.NodeCount) + 1);
            EXPECT_EQ(Element.Nodes[0].Position.X, 0);
            ExpectSame(Saved(Element), file);
        }
    }
}

TEST_F(ElementFile, SamplesComeBackByteForByte) {
    for (const char* name : {"banked-turn.nlelem", "loop.nlelem"}) {
        ASSERT_TRUE(LoadElementFile(PathFromOutside(Example(name)))) << name;
        ExpectSame(Saved(Element), ReadBytes(Example(name)));
    }
}

ElementDocument TwoSpans() {
    return {.NodeCount = 2, .Nodes = std::vector<ElementNode>(3)};
}

TEST_F(ElementFile, EndsBehindItsLastRecord) {
    Bytes records = FileOf(TwoSpans());
    for (records.resize(176);; records.pop_back()) {
        Element = TwoSpans();
        const bool loaded{Load(records)};
        // The byte behind the file reads as zero: the last of the records, or that of a count of no spans.
        EXPECT_EQ(loaded, records.size() == 75 || records.size() >= 175) << records.size();
        EXPECT_EQ(Element.NodeCount, records.size() >= 175 ? 2 : 0) << records.size();
        if (records.empty())
            break;
    }
}

TEST_F(ElementFile, NamesAreTreatedLikeThoseOfTracks) {
    Element = TwoSpans();
    for (const char* name : {"a", "b.nltrack", "c.NLELEM"})
        EXPECT_TRUE(SaveElementFile(folder.Inside(name)));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.nlelem", "b.nltrack.nlelem", "c.NLELEM"}));
    ClearElementDocument();
    EXPECT_TRUE(LoadElementFile(folder.Inside("c.NlElem"))); // found in any case
    WriteBytes(folder.File("d.txt"), FileOf(Element));
    for (const std::string& name : {std::string(), folder.Inside("d.txt"), folder.Inside("e.nlelem")})
        EXPECT_FALSE(LoadElementFile(name)) << name;
    ExpectSame(FileOf(Element), FileOf(TwoSpans()));
}

} // namespace
} // namespace railwright
