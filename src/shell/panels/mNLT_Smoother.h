#pragma once

#include "shell/ToolPanel.h"

class QLabel;

namespace railwright {

class ucFrame;

/// Reshapes the curve of the open track.
class SmootherPanel final : public ToolPanel {
public:
    explicit SmootherPanel(ucFrame& frame);

    void Prepare() override;

private:
    void btnTSmoother_Click();

    /// Tells that the track is too long, and is empty otherwise.
    QLabel* lblTSmoother;
};

} // namespace railwright
