#include "geometry/Preview.h"

#include "geometry/mNoLimits_TrackTools.h"
#include "platform/svg/SvgPictureBox.h"
#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace railwright {
namespace {

/// A picture that writes down what is done to it, in a list that two of them can share.
struct RecordingPictureBox final : PictureBox {
    std::string Name;
    std::vector<std::string>& Calls;
    Vector3 LastPoint;

    RecordingPictureBox(const char* name, std::vector<std::string>& calls) : Name(name), Calls(calls) {}
    void Cls() override { Record("cls"); }
    void Line(float x1, float y1, float x2, float y2, Rgb c) override { Record("", x1, y1, x2, y2, In(c)); }
    void PSet(float x, float y, Rgb c) override {
        Record("point", x, y, In(c));
        LastPoint = {x, y, 0};
    }
    void DrawWidth(int pixels) override { Record("width", pixels); }

    static std::string In(Rgb c) {
        if (c.Red == c.Green && c.Green == c.Blue && c.Red <= 64)
            return c.Red == 32 ? "grid" : c.Red == 64 ? "axis" : "dark";
        return std::to_string(c.Red) + ',' + std::to_string(c.Green) + ',' + std::to_string(c.Blue);
    }
    template <class... Words>
    void Record(const char* action, const Words&... words) {
        std::ostringstream call;
        call << Name << action;
        ((call << ' ' << words), ...);
        Calls.push_back(call.str());
    }
};

class Previews : public testing::EmptyDocuments {
protected:
    std::vector<std::string> calls;
    RecordingPictureBox plan{"p", calls}, side{"s", calls};

    void Draw(void (*analyze)(), void (*draw)(PictureBox&, PictureBox&)) {
        calls.clear();
        analyze();
        draw(plan, side);
    }
    void DrawTrack() { Draw(AnalyzeTrack, DrawTrackPreview); }
    void DrawElement() { Draw(AnalyzeElement, DrawElementPreview); }
    /// How many calls end in `ending`, a colour for example.
    std::ptrdiff_t Count(const std::string& ending) const {
        return std::count_if(calls.begin(), calls.end(),
                             [&](const std::string& call) { return call.ends_with(ending); });
    }
    /// @param expected calls with their places in the list, each with a semicolon behind it.
    void ExpectCalls(const std::string& expected) const {
        std::istringstream rows(expected);
        std::size_t place = 0;
        for (std::string call; rows >> place && std::getline(rows >> std::ws, call, ';');)
            EXPECT_EQ(calls.at(place), call) << place;
    }
};

constexpr std::size_t GroundOfTrack = 157; // two clears, 92 lines of the plan and 63 of the side

TEST_F(Previews, DrawATrackOverItsGroundInChordsOfFourSamples) {
    testing::SetStraightCurve({{-200, 30, 50}, {200, 30, 50}}, false); // 4 metres from sample to sample
    DrawTrack();
    ASSERT_EQ(calls.size(), GroundOfTrack + 50);
    ExpectCalls("0 pcls; 1 scls; 4 p 0 5 220 5 grid; 91 p 220 0 220 220 grid; 92 p 110 0 110 220 axis; "
                "93 p 0 110 220 110 axis; 94 s 0 35 220 35 grid; 109 s 0 110 220 110 grid; "
                "111 s 5 35 5 110 grid; 154 s 220 35 220 110 grid; 155 s 110 35 110 110 axis; "
                "156 s 0 110 220 110 axis; 157 p 10 135 18 135 0,128,255; 158 s 10 95 18 95 0,128,255; "
                "159 p 18 135 26 135 0,128,255;");
    for (const auto& [length, chords] : {std::pair(2.4F, 1U), {1.9F, 0U}}) { // 5 points or 4
        testing::SetStraightCurve({{0, 0, 0}, {0, 0, length}}, false);
        DrawTrack();
        EXPECT_EQ(calls.size(), GroundOfTrack + 2 * chords);
    }
}

TEST_F(Previews, ColourAChordByTheSegmentOfItsFirstSample) {
    testing::SetStraightCurve({{-150, 0, 0}, {150, 0, 0}, {150, 0, 150}}, false);
    auto& segments = Track.SegmentList.Segments;
    segments[1].SegmentType = SegmentKind::Lift;
    DrawTrack();
    EXPECT_EQ(Count(" 0,128,255"), 2 * 26); // sample 100 is the last of the first span
    EXPECT_EQ(Count(" 0,255,0"), 2 * 24);

    const std::pair<std::int32_t, const char*> colours[] = {
        {0, " 0,128,255"}, {1, " 255,128,0"}, {2, " 0,255,0"},   {3, " 255,255,0"},       {4, " 255,0,0"},
        {5, "axis"},       {6, "grid"},       {7, " 0,128,255"}, {1000000, " 0,128,255"}, {-1, " 0,128,255"}};
    for (const auto& [type, colour] : colours) {
        segments[0].SegmentType = segments[1].SegmentType = type;
        DrawTrack();
        calls.erase(calls.begin(), calls.begin() + GroundOfTrack);
        EXPECT_EQ(Count(colour), 100) << type;
    }
    segments.clear(); // a file may hold fewer segments than nodes
    Track.SegmentList.SegmentCount = 0;
    DrawTrack();
    EXPECT_EQ(Count(" 0,128,255"), 100);
}

TEST_F(Previews, LeaveOutWhatIsNotFinite) {
    testing::SetStraightCurve({{-150, 0, 0}, {150, 0, 0}, {150, 0, 150}}, false);
    Track.BezierCurve.Nodes[1].Position.Y = std::numeric_limits<float>::infinity();
    DrawTrack();
    for (const std::string& call : calls)
        EXPECT_EQ(call.find('n'), std::string::npos) << call; // neither inf nor nan
    testing::SetStraightElement({{}, {0, 0, 20}, {0, 0, 40}});
    Element.Nodes[1].Position.X = std::numeric_limits<float>::quiet_NaN();
    DrawElement();
    EXPECT_EQ(Count(" 255,255,255"), 2); // of the other nodes the last one is left
}

TEST_F(Previews, DrawAnElementOverItsGridAndItsNodesLast) {
    testing::SetStraightElement({{}, {4, 8, -40}}); // its extent without its end is 36 metres: S is 1.5
    DrawElement();
    // The first grid line lies at 110 - 7 * 15 = 5: 15 lines each way and two axes on both pictures.
    ASSERT_EQ(calls.size(), 4U + 2 * 32 + 2 * 19 + 2 + 4);
    ExpectCalls("0 pcls; 1 scls; 2 pwidth 1; 3 swidth 1; 4 p 0 5 220 5 grid; 5 p 5 0 5 220 grid; "
                "34 p 110 0 110 220 axis; 35 p 0 110 220 110 axis; 36 s 0 5 220 5 grid; "
                "68 p 110 110 110.3 107 0,128,255; 69 s 110 110 113 109.4 0,128,255; "
                "105 s 164 99.2 170 98 0,128,255; 106 pwidth 3; 107 swidth 3; "
                "109 spoint 110 110 255,255,0; 110 ppoint 116 50 255,255,255; "
                "111 spoint 170 98 255,255,255;");
}

TEST_F(Previews, ScaleAnElementByItsLargestExtent) {
    const std::tuple<float, float, std::ptrdiff_t> cases[] = {
        // extent, scale, grid lines each way
        {0.2F, 55, 1},       {10, 5.5F, 5},     {30, 2, 11},       {50, 1, 23},
        {100, 0.5F, 45},     {219, 0.5F, 45},   {220, 0.25F, 111}, // a spacing of 2.5 rounds to 2
        {1000, 0.055F, 221}, {2000, 0.0275F, 0}};                  // a spacing of nothing: axes alone
    for (const auto& [extent, scale, lines] : cases)
        for (float Vector3::*const axis : {&Vector3::X, &Vector3::Y, &Vector3::Z}) {
            Vector3 end; // which does not count: nine tenths of the way are left
            end.*axis = extent / 0.9F;
            testing::SetStraightElement({{}, end});
            DrawElement();
            EXPECT_EQ(Count("grid"), 4 * lines) << extent;
            const float pixels = axis == &Vector3::X   ? plan.LastPoint.X - 110
                                 : axis == &Vector3::Y ? 110 - side.LastPoint.Y
                                                       : plan.LastPoint.Y - 110;
            EXPECT_NEAR(pixels, scale * extent / 0.9F, scale * extent * 1e-3F);
        }
}

TEST_F(Previews, BecomeOneSvgElementForEachCall) {
    SvgPictureBox picture;
    picture.Line(9, 9, 9, 9, {});
    picture.Cls();
    picture.Line(0, 5, 220, 0.1F, {32, 0, 255});
    picture.DrawWidth(3);
    picture.PSet(1.5F, -2, {255, 255, 0});
    EXPECT_TRUE(picture.Document().ends_with(
        R"(<rect width="224" height="224" fill="#000000"/>
<line x1="0" y1="5" x2="220" y2="0.1" stroke="#2000ff" stroke-width="1"/>
<circle cx="1.5" cy="-2" r="1.5" fill="#ffff00"/>
</svg>
)")) << picture.Document();
}

} // namespace
} // namespace railwright
