#pragma once

#include "shell/ToolPanel.h"

#include <string>

class QPlainTextEdit;

namespace railwright {

class ucFrame;

/// The report of the open track.
class OverviewPanel final : public ToolPanel {
public:
    explicit OverviewPanel(ucFrame& frame);

    /// @param report UTF-8, its lines set apart by CR LF.
    void ShowReport(const std::string& report);

private:
    QPlainTextEdit* txtOverview;
};

} // namespace railwright
