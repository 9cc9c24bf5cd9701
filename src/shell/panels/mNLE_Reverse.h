#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// Makes the open element run the other way.
class ElementReversePanel final : public ToolPanel {
public:
    explicit ElementReversePanel(ucFrame& frame);

private:
    void btnEReverse_Click();
};

} // namespace railwright
