#pragma once

#include "shell/ToolPanel.h"

class QCheckBox;

namespace railwright {

class ucFrame;

/// Flips the open track across a vertical plane.
class MirrorPanel final : public ToolPanel {
public:
    explicit MirrorPanel(ucFrame& frame);

private:
    void btnTMirror_Click(int Index);

    QCheckBox* chkTMirror;
};

} // namespace railwright
