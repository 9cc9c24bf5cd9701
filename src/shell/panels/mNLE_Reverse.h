#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// Reverses the direction of the open element.
class ElementReversePanel final : public ToolPanel {
public:
    explicit ElementReversePanel(ucFrame& frame);

private:
    void btnEReverse_Click();
};

} // namespace railwright
