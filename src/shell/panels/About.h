#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// Shows the program's version and authors.
class AboutPanel final : public ToolPanel {
public:
    explicit AboutPanel(ucFrame& frame);
};

} // namespace railwright
