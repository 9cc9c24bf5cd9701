#pragma once

namespace railwright {

/// A panel of the window. Fills its frame with controls and handles their events.
class ToolPanel {
public:
    ToolPanel() = default;
    virtual ~ToolPanel() = default;
    ToolPanel(const ToolPanel&) = delete;
    ToolPanel& operator=(const ToolPanel&) = delete;

    /// Runs each time the panel is shown.
    virtual void Prepare() {}
};

} // namespace railwright
