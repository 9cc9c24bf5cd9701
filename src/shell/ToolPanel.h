#pragma once

namespace railwright {

/// One of the panels of the window: it fills its frame with controls and answers their events.
class ToolPanel {
public:
    ToolPanel() = default;
    virtual ~ToolPanel() = default;
    ToolPanel(const ToolPanel&) = delete;
    ToolPanel& operator=(const ToolPanel&) = delete;

    /// Runs each time the panel is brought to the front.
    virtual void Prepare() {}
};

} // namespace railwright
