#include "shell/panels/mNLT_Mirror.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Mirror.h"

#include <array>

#include <QCheckBox>

namespace railwright {

MirrorPanel::MirrorPanel(ucFrame& frame) {
    constexpr std::array captions = {"Mirror North && South", "Mirror East && West"};
    for (int index = 0; const char* caption : captions) {
        QPushButton* const button =
            AddButton(frame, Indexed("btnTMirror", index), caption, {180 + index * 2475, 3660, 2355, 375});
        QObject::connect(button, &QPushButton::clicked, button, [this, index] { btnTMirror_Click(index); });
        ++index;
    }
    chkTMirror =
        AddCheckBox(frame, "chkTMirror", "Mirror Support Nodes with Track", {180, 4215, 4500, 195}, true);
}

void MirrorPanel::btnTMirror_Click(int Index) {
    const bool supports = chkTMirror->isChecked();
    ApplyTrackTool([&] { MirrorTrack(Index, supports); });
}

} // namespace railwright
