#pragma once

#include "shell/ToolPanel.h"

#include <optional>
#include <string>

class QPlainTextEdit;

namespace railwright {

class ucFrame;

/// The report of the open track.
class OverviewPanel final : public ToolPanel {
public:
    explicit OverviewPanel(ucFrame& panel);

    /// @param report UTF-8, its lines set apart by CR LF. The box gets it when it is seen: to lay out a long
    /// text takes a while.
    void ShowReport(std::string report);
    void Prepare() override;

private:
    void MakeBox();

    ucFrame& frame;
    /// Made when it is first seen: it needs fonts that nothing else needs, and to find them takes a while.
    QPlainTextEdit* txtOverview = nullptr;
    /// What the box does not have yet.
    std::optional<std::string> pending;
};

} // namespace railwright
