#include "shell/panels/mNLT_TunnelTest.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_TunnelTest.h"

#include <array>

namespace railwright {

TunnelTestPanel::TunnelTestPanel(ucFrame& frame) {
    constexpr std::array captions = {"Toggle Tunnels", "Tunnel all Segments", "Un-Tunnel all Segments"};
    for (int index = 0; const char* caption : captions) {
        QPushButton* const button =
            AddButton(frame, Indexed("btnTTunnel", index), caption, {180, 180 + index * 495, 2355, 375});
        QObject::connect(button, &QPushButton::clicked, button, [this, index] { btnTTunnel_Click(index); });
        ++index;
    }
}

void TunnelTestPanel::btnTTunnel_Click(int Index) {
    ApplyTrackTool([&] { SetTunnels(Index); });
}

} // namespace railwright
