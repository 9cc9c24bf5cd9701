#pragma once

#include "shell/ToolPanel.h"

class QPushButton;

namespace railwright {

class ucFrame;

/// Turns an open track into a closed one that runs out and back.
class ShuttleMakePanel final : public ToolPanel {
public:
    explicit ShuttleMakePanel(ucFrame& frame);

    void Refresh(const TrackMeasures& measures) override;

private:
    /// Enables the button while the track is not a complete circuit.
    void UpdateShuttleButton();
    void btnTShuttle_Click();

    QPushButton* btnTShuttle;
};

} // namespace railwright
