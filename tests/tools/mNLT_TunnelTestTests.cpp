#include "tools/mNLT_TunnelTest.h"

#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

class TunnelTest : public testing::EmptyDocuments {};

TEST_F(TunnelTest, SetsTheFlagOfAllSegmentsWhateverTheNumberOfNodes) {
    struct Case {
        int Mode;
        const char* Once;
        const char* Twice;
    };
    const Case cases[] = {{0, "0100", "1010"},
                          {1, "1110", "1110"},
                          {2, "0000", "0000"},
                          {3, "1010", "1010"},
                          {-1, "1010", "1010"}};
    const auto flags = [] {
        std::string all;
        for (const TrackSegment& segment : Track.SegmentList.Segments)
            all += segment.Tunnel ? '1' : '0';
        return all;
    };
    for (const Case& one : cases) {
        Track.SegmentList.SegmentCount = 3;
        Track.SegmentList.Segments.assign(4, {}); // the last is beyond the count
        Track.SegmentList.Segments[0].Tunnel = Track.SegmentList.Segments[2].Tunnel = true;
        SetTunnels(one.Mode);
        EXPECT_EQ(flags(), one.Once);
        SetTunnels(one.Mode);
        EXPECT_EQ(flags(), one.Twice);
    }
    ClearTrackDocument();
    SetTunnels(TunnelMode::All);
    EXPECT_TRUE(Track.SegmentList.Segments.empty());
}

} // namespace
} // namespace railwright
