#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// Makes the open track run the other way round.
class BackwardsPanel final : public ToolPanel {
public:
    explicit BackwardsPanel(ucFrame& frame);

private:
    void btnTBackwards_Click();
};

} // namespace railwright
