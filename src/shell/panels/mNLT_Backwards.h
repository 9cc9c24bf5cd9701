#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// Reverses the direction of the open track.
class BackwardsPanel final : public ToolPanel {
public:
    explicit BackwardsPanel(ucFrame& frame);

private:
    void btnTBackwards_Click();
};

} // namespace railwright
