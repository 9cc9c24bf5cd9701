#pragma once

#include "shell/ToolPanel.h"

class QLabel;

namespace railwright {

class AngleBar;
class ucFrame;

/// Rotates the open element about one of the axes.
class ElementRotatePanel final : public ToolPanel {
public:
    explicit ElementRotatePanel(ucFrame& frame);

private:
    void hsERotate_Change();
    void btnERotate_Click(int Index);

    QLabel* lblERotate;
    AngleBar* hsERotate;
};

} // namespace railwright
