#pragma once

#include "shell/ToolPanel.h"

#include <array>

class QCheckBox;

namespace railwright {

class ucFrame;

/// Removes classes of data from the open track.
class RemovePanel final : public ToolPanel {
public:
    explicit RemovePanel(ucFrame& frame);

private:
    void chkRemove_Click();
    void btnRemove_Click(int Index);

    std::array<QCheckBox*, 13> chkRemove{};
};

} // namespace railwright
