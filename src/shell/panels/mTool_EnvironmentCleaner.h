#pragma once

#include "shell/ToolPanel.h"

#include <array>

class QLabel;
class QPushButton;
class QWidget;

namespace railwright {

class ucFrame;

/// Tidies the folder of the simulator's environments.
class EnvironmentOrganizerPanel final : public ToolPanel {
public:
    explicit EnvironmentOrganizerPanel(ucFrame& frame);

private:
    std::array<QLabel*, 2> lblNLEnvOrganize{};
    QPushButton* btnNLEnvOrganize;
    QWidget* pbNLEnvOrganize;
};

} // namespace railwright
