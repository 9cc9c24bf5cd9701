#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// What the program is, and by whom.
class AboutPanel final : public ToolPanel {
public:
    explicit AboutPanel(ucFrame& frame);
};

} // namespace railwright
