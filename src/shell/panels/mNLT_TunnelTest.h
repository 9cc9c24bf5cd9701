#pragma once

#include "shell/ToolPanel.h"

namespace railwright {

class ucFrame;

/// Sets the tunnels of the open track.
class TunnelTestPanel final : public ToolPanel {
public:
    explicit TunnelTestPanel(ucFrame& frame);

private:
    void btnTTunnel_Click(int Index);
};

} // namespace railwright
