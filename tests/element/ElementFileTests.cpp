#include "element/mNoLimits_ElementIO_1_3.h"

#include "tests/support/DocumentTest.h"

namespace railwright::testing {

using ElementFile = DocumentTest<Element, LoadElementFile, SaveElementFile>;

TEST_F(ElementFile, ElementsComeBackWholeFromAnyForm) {
    const Form forms[] = {{}, {.Noise = 0xA5}, {.True = 0x01}, {.Case = 0x20}};
    for (unsigned seed = 0; seed < 25; ++seed) {
        SCOPED_TRACE(seed);
        auto random = Random<ElementDocument>(seed);
        EXPECT_EQ(FileOf(random).size(), static_cast<std::size_t>(144 + 50 * random.NodeCount));
        random.SubChunks = 9; // neither this nor the next value is stored in the file
        random.Nodes[0] = {{5, 5, 5}, random.Nodes[0].ControlOut, {5, 5, 5}, 5, true, true};
        if (random.NodeCount > 0)
            random.Nodes.back().ControlOut = {5, 5, 5};
        ExpectToComeBack(random, forms);
        EXPECT_EQ(Element.SubChunks, 0);
        EXPECT_EQ(Element.Nodes.size(), static_cast<std::size_t>(Element.NodeCount) + 1);
        EXPECT_EQ(Element.Nodes[0].Position.X, 0);
    }
    ExpectSamplesToComeBack({"banked-turn.nlelem", "loop.nlelem"});
}

TEST_F(ElementFile, HasNamesOfItsOwnAndEndsBehindItsLastRecord) {
    ExpectNamesToBeHeeded(Random<ElementDocument>(1));
    const ElementDocument twoSpans = {.NodeCount = 2, .Nodes = List<ElementNode>(3)};
    const Bytes file = FileOf(twoSpans);
    for (int size = 0; size <= 176; ++size) {
        Element = twoSpans;
        const bool loaded{Load(Bytes(file.begin(), file.begin() + size))};
        // The byte after the file reads as zero. It completes the last record, or a count of zero spans.
        EXPECT_EQ(loaded, size == 75 || size >= 175) << size;
        EXPECT_EQ(Element.NodeCount, size >= 175 ? 2 : 0) << size;
    }
}

} // namespace railwright::testing
