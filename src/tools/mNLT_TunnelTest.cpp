#include "tools/mNLT_TunnelTest.h"

#include "track/TrackDocument.h"

#include <cstddef>
#include <span>

namespace railwright {

void SetTunnels(int Mode) {
    if (Mode != TunnelMode::Toggle && Mode != TunnelMode::All && Mode != TunnelMode::None)
        return;
    const auto count = static_cast<std::size_t>(Track.SegmentList.SegmentCount);
    for (TrackSegment& segment : std::span(Track.SegmentList.Segments).first(count))
        segment.Tunnel = Mode == TunnelMode::Toggle ? !segment.Tunnel : Mode == TunnelMode::All;
}

} // namespace railwright
