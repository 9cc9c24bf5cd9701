#pragma once

#include "shell/ToolPanel.h"

class QCheckBox;
class QLabel;

namespace railwright {

class AngleBar;
class ucFrame;

/// Rotates the open track about the vertical axis.
class RotatePanel final : public ToolPanel {
public:
    explicit RotatePanel(ucFrame& frame);

private:
    void hsTRotate_Change();
    void btnTRotate_Click();

    QLabel* lblTRotate;
    AngleBar* hsTRotate;
    QCheckBox* chkTRotate;
};

} // namespace railwright
