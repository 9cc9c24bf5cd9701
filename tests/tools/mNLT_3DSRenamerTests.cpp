#include "tools/mNLT_3DSRenamer.h"

#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

class Renamer : public testing::EmptyDocuments {};

TEST_F(Renamer, RenamesTheChosenObjectAndThoseOfItsName) {
    struct Case {
        std::int32_t Index;
        bool All;
        std::vector<text> Expected;
    };
    // e with acute in both cases, the division sign (whose byte is 0x20 above the multiplication sign), and
    // S with caron, which lies apart from the other letters.
    const std::vector<text> names = {"CAF\xC9.3ds", "caf\xE9.3DS", "cafe.3ds", "x\xD7.3ds",
                                     "x\xF7.3ds",   "\x8A.3ds",    "\x9A.3ds", "caf\xE9.3ds "};
    const auto with = [&](std::initializer_list<std::size_t> places) {
        std::vector<text> renamed = names;
        for (const std::size_t place : places)
            renamed[place] = "sub\\new";
        return renamed;
    };
    const Case cases[] = {{0, true, with({0, 1})}, {1, true, with({0, 1})}, {1, false, with({1})},
                          {3, true, with({3})},    {6, true, with({5, 6})}, {7, true, with({7})}};
    for (const Case& one : cases) {
        Track.SceneryObjects.Items.assign(names.size() + 1, {});
        Track.SceneryObjects.Count = static_cast<std::int32_t>(names.size());
        for (std::size_t i = 0; i < names.size(); ++i)
            Track.SceneryObjects.Items[i].FileName = names[i];
        RenameSceneryObject(one.Index, "sub\\new", one.All);
        std::vector<text> after;
        for (std::size_t i = 0; i < names.size(); ++i)
            after.push_back(Track.SceneryObjects.Items[i].FileName);
        EXPECT_EQ(after, one.Expected) << one.Index;
    }
}

} // namespace
} // namespace railwright
