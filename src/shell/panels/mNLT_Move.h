#pragma once

#include "shell/ToolPanel.h"

#include <cstddef>

class QCheckBox;
class QLabel;
class QScrollBar;

namespace railwright {

class ucFrame;

/// Moves the open track along one of the axes.
class MovePanel final : public ToolPanel {
public:
    explicit MovePanel(ucFrame& frame);

private:
    void hsTMove_Change();
    void btnTMove_Click(std::size_t Index);

    QLabel* lblTMove;
    QScrollBar* hsTMove;
    QCheckBox* chkTMove;
};

} // namespace railwright
