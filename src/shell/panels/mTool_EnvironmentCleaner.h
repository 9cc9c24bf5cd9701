#pragma once

#include "shell/ToolPanel.h"

#include <array>

class QLabel;
class QPushButton;

namespace railwright {

class ucFrame;

/// Organizes the simulator's environments.
class EnvironmentOrganizerPanel final : public ToolPanel {
public:
    explicit EnvironmentOrganizerPanel(ucFrame& frame);

    /// Counts the environments again.
    void Prepare() override;

private:
    class Bar;

    void btnNLEnvOrganize_Click();

    std::array<QLabel*, 2> lblNLEnvOrganize{};
    QPushButton* btnNLEnvOrganize;
    Bar* pbNLEnvOrganize;
};

} // namespace railwright
