#pragma once

#include "shell/ToolPanel.h"

class QLabel;

namespace railwright {

class ucFrame;

/// Smooths the curve of the open track.
class SmootherPanel final : public ToolPanel {
public:
    explicit SmootherPanel(ucFrame& frame);

    void Prepare() override;

private:
    void btnTSmoother_Click();

    /// Reports that the track is too long; otherwise empty.
    QLabel* lblTSmoother;
};

} // namespace railwright
