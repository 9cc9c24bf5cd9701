#pragma once

namespace railwright {

struct TrackMeasures;

/// A panel of the window. Fills its frame with controls and handles their events.
class ToolPanel {
public:
    ToolPanel() = default;
    virtual ~ToolPanel() = default;
    ToolPanel(const ToolPanel&) = delete;
    ToolPanel& operator=(const ToolPanel&) = delete;

    /// Runs each time the panel is shown.
    virtual void Prepare() {}
    /// Runs after each change of Track. @param measures the current result of MeasureTrack.
    virtual void Refresh([[maybe_unused]] const TrackMeasures& measures) {}
};

} // namespace railwright
