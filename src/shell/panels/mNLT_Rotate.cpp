#include "shell/panels/mNLT_Rotate.h"

#include "shell/AngleBar.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Rotate.h"

#include <QCheckBox>
#include <QLabel>

namespace railwright {

RotatePanel::RotatePanel(ucFrame& frame) {
    AddLabel(frame, "Label7", "Rotate:", {180, 3660, 615, 195});
    lblTRotate = AddLabel(frame, "lblTRotate", "0 degrees.", {840, 3660, 2280, 195});
    hsTRotate = new AngleBar(frame, "hsTRotate", "Rotate:", {180, 3915, 7215, 255});
    chkTRotate =
        AddCheckBox(frame, "chkTRotate", "Rotate Support Nodes with Track", {180, 4425, 4500, 195}, true);
    QPushButton* const button = AddButton(frame, "btnTRotate", "Rotate", {5940, 4335, 1455, 375});
    QObject::connect(hsTRotate, &QScrollBar::valueChanged, hsTRotate, [this] { hsTRotate_Change(); });
    QObject::connect(button, &QPushButton::clicked, button, [this] { btnTRotate_Click(); });
}

void RotatePanel::hsTRotate_Change() {
    lblTRotate->setText(hsTRotate->Caption());
}

void RotatePanel::btnTRotate_Click() {
    const bool supports = chkTRotate->isChecked();
    ApplyTrackTool([&] { RotateTrack(hsTRotate->Degrees(), supports); });
}

} // namespace railwright
