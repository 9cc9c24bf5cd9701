#pragma once

#include "shell/ToolPanel.h"

class QCheckBox;
class QLabel;
class QScrollBar;

namespace railwright {

class ucFrame;

/// Scales the open track.
class ScalePanel final : public ToolPanel {
public:
    explicit ScalePanel(ucFrame& frame);

private:
    void hsTScale_Change();
    void btnTScale_Click();

    QLabel* lblTScale;
    QScrollBar* hsTScale;
    QCheckBox* chkTScale;
};

} // namespace railwright
